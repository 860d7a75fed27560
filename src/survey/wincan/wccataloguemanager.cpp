#include "survey/wincan/wccataloguemanager.h"

#include "core/consolesettings.h"
#include "core/singleton.h"
#include "core/unitpaths.h"
#include "survey/wincan/wccatalogue.h"

namespace {

const QString kSpecificationKey = QStringLiteral("Wincan/specification");
const QString kCatalogueDir = QStringLiteral("/opt/hbi/etc/WinCan/catalogues/");

int slotOf(WCCatalogueManager::Specification specification)
{
    return int(specification) - int(WCCatalogueManager::kWCCat_MSCC_3);
}

} // namespace

WCCatalogueManager::WCCatalogueManager(QObject *parent) : QObject(parent)
{
    m_specification = known(ConsoleSettings().value(kSpecificationKey, 0).toInt());
}

WCCatalogueManager *WCCatalogueManager::instance(QObject *parent)
{
    static WCCatalogueManager *theInstance = nullptr;
    return Singleton<WCCatalogueManager>::instance(theInstance, parent);
}

// Anything but a known specification, the key's default 0 included, means MSCC-4.
WCCatalogueManager::Specification WCCatalogueManager::known(int value)
{
    if (value >= kWCCat_MSCC_3 && value <= kWCCat_MSCC_5_Domestic)
        return Specification(value);
    return kWCCat_MSCC_4;
}

void WCCatalogueManager::setSpecification(int specification)
{
    if (specification == m_specification)
        return;
    m_specification = known(specification);
    ConsoleSettings().setValue(kSpecificationKey, specification);
}

QString WCCatalogueManager::cataloguePath(Specification specification)
{
    switch (specification) {
    case kWCCat_MSCC_3:
        return unitPath(kCatalogueDir + QStringLiteral("WRC_MSCC-3_UK_ENG_SEC.xml"));
    case kWCCat_MSCC_4:
        return unitPath(kCatalogueDir + QStringLiteral("WRC_MSCC-4_UK_ENG_SEC.xml"));
    case kWCCat_MSCC_5:
        return unitPath(kCatalogueDir + QStringLiteral("WRC_MSCC-5_UK_ENG_SEC.xml"));
    case kWCCat_MSCC_5_Domestic:
        return unitPath(kCatalogueDir + QStringLiteral("WRC_MSCC-5-DOMESTIC-DRAIN-CODES_UK_ENG_SEC.xml"));
    default:
        return QString();
    }
}

WCCatalogue *WCCatalogueManager::catalogue(Specification specification)
{
    if (specification == kWCCat_Default)
        specification = m_specification;
    if (specification < kWCCat_MSCC_3 || specification > kWCCat_MSCC_5_Domestic)
        return nullptr;
    WCCatalogue *&slot = m_cat[slotOf(specification)];
    if (slot && slot->isOpen())
        return slot;
    if (!slot)
        slot = new WCCatalogue;
    QString path = cataloguePath(specification);
    return slot->open(path) == 0 ? slot : nullptr;
}
