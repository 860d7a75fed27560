#include "survey/wincan/wccatalogue.h"

#include <QDebug>

#include <string>

namespace {

QString text(const wchar_t *value)
{
    return QString::fromWCharArray(value);
}

template <typename T>
T *at(T **records, int count, int index)
{
    return index >= 0 && index < count ? records[index] : nullptr;
}

} // namespace

WCCatalogue::~WCCatalogue()
{
    close();
}

int WCCatalogue::open(const wchar_t *path)
{
    close();
    const int handle = WCC_OpenCatalogEx(path, 1, L"UTF8", 0xffff);
    if (handle < 0) {
        qWarning().noquote() << "Catalogue" << text(path) << "cannot be opened, error" << handle;
        m_cat = -1;
        return handle;
    }
    m_cat = handle;
    return 0;
}

int WCCatalogue::open(QString &path)
{
    const std::wstring wide = path.toStdWString();
    return open(wide.c_str());
}

void WCCatalogue::close()
{
    if (m_cat < 0)
        return;
    WCC_CloseCatalog(m_cat, 1);
    m_cat = -1;
}

WCCatVersion_t *WCCatalogue::versionInfo() const
{
    WCCatVersion_t *version = nullptr;
    return WCC_GetVersionInfo(m_cat, &version) >= 0 ? version : nullptr;
}

WCCatCatalog_t *WCCatalogue::catalogInfo() const
{
    WCCatCatalog_t *info = nullptr;
    return WCC_GetCatalogInfo(m_cat, &info) >= 0 ? info : nullptr;
}

qint64 WCCatalogue::approxMemUsage() const
{
    if (!isOpen())
        return 0;
    WCCatCodeClass **classes = nullptr;
    WCCatBaseCode **baseCodes = nullptr;
    WCCatCharExt **charExts = nullptr;
    const qint64 classCount = qMax(0, WCC_GetCodeClasses(m_cat, &classes));
    const qint64 baseCount = qMax(0, WCC_GetAllBaseCodes(m_cat, &baseCodes));
    const qint64 extCount = qMax(0, WCC_GetAllCharExts(m_cat, &charExts));
    qint64 paramCount = 0;
    for (qint64 i = 0; i < baseCount; ++i)
        paramCount += baseCodes[i]->NumOfParams;
    for (qint64 i = 0; i < extCount; ++i)
        paramCount += charExts[i]->NumOfParams;
    return classCount * qint64(sizeof(WCCatCodeClass)) + baseCount * qint64(sizeof(WCCatBaseCode))
           + extCount * qint64(sizeof(WCCatCharExt)) + paramCount * qint64(sizeof(WCCatParam));
}

QString WCCatalogue::getInterfaceVersion()
{
    return text(WCC_GetInterfaceVersion());
}

QStringList WCCatalogue::getCatagoryStringList() const
{
    WCCatCodeClass **classes = nullptr;
    const int count = WCC_GetCodeClasses(m_cat, &classes);
    QStringList rows;
    for (int i = 0; i < count; ++i) {
        if (!classes[i]->IsVirtual)
            rows << text(classes[i]->Item);
    }
    return rows;
}

QStringList WCCatalogue::getBaseCodesStringList(WCCatCodeClass *codeClass) const
{
    WCCatBaseCode **baseCodes = nullptr;
    const int count = codeClass ? WCC_GetBaseCodesByClass(m_cat, codeClass, &baseCodes) : 0;
    QStringList rows;
    for (int i = 0; i < count; ++i) {
        if (!baseCodes[i]->IsVirtual)
            rows << text(baseCodes[i]->Item);
    }
    return rows;
}

QStringList WCCatalogue::getCharExt1StringList(WCCatBaseCode *baseCode) const
{
    WCCatCharExt **charExts = nullptr;
    const int count = baseCode ? WCC_GetCharExtsByBaseCode(m_cat, baseCode, &charExts) : 0;
    QStringList rows;
    for (int i = 0; i < count; ++i)
        rows << text(charExts[i]->Item);
    return rows;
}

QStringList WCCatalogue::getCharExt2StringList(WCCatCharExt *charExt) const
{
    WCCatCharExt **charExts = nullptr;
    const int count = charExt ? WCC_GetCharExtsByCharExt(m_cat, charExt, &charExts) : 0;
    QStringList rows;
    for (int i = 0; i < count; ++i)
        rows << text(charExts[i]->Item);
    return rows;
}

WCCatCodeClass *WCCatalogue::getCatagoryClass(int index) const
{
    WCCatCodeClass **classes = nullptr;
    return at(classes, WCC_GetCodeClasses(m_cat, &classes), index);
}

WCCatBaseCode *WCCatalogue::getBasecode(WCCatCodeClass *codeClass, int index) const
{
    if (!codeClass)
        return nullptr;
    WCCatBaseCode **baseCodes = nullptr;
    return at(baseCodes, WCC_GetBaseCodesByClass(m_cat, codeClass, &baseCodes), index);
}

WCCatCharExt *WCCatalogue::getCharExtClass(WCCatBaseCode *baseCode, int index) const
{
    if (!baseCode)
        return nullptr;
    WCCatCharExt **charExts = nullptr;
    return at(charExts, WCC_GetCharExtsByBaseCode(m_cat, baseCode, &charExts), index);
}

WCCatCharExt *WCCatalogue::getCharExtClass(WCCatCharExt *charExt, int index) const
{
    if (!charExt)
        return nullptr;
    WCCatCharExt **charExts = nullptr;
    return at(charExts, WCC_GetCharExtsByCharExt(m_cat, charExt, &charExts), index);
}

int WCCatalogue::getParams(QString &code, WCCatParam ***params) const
{
    *params = nullptr;
    if (!isOpen())
        return WCC_ERR_NOT_OPEN;
    const std::wstring wide = code.toStdWString();
    return WCC_GetParamsByDefectCode(m_cat, wide.c_str(), params);
}

int WCCatalogue::getBaseCode(QString &code, WCCatBaseCode **baseCode) const
{
    *baseCode = nullptr;
    if (!isOpen())
        return WCC_ERR_NOT_OPEN;
    WCCatBaseCode **baseCodes = nullptr;
    const int count = WCC_GetAllBaseCodes(m_cat, &baseCodes);
    const std::wstring wide = code.toStdWString();
    for (int i = 0; i < count; ++i) {
        if (wcscmp(baseCodes[i]->Code, wide.c_str()) == 0) {
            *baseCode = baseCodes[i];
            return 0;
        }
    }
    return WCC_ERR_NOT_FOUND;
}

int WCCatalogue::getCharExtCode(QString &code, WCCatCharExt **charExt) const
{
    *charExt = nullptr;
    if (!isOpen())
        return WCC_ERR_NOT_OPEN;
    WCCatCharExt **charExts = nullptr;
    const int count = WCC_GetAllCharExts(m_cat, &charExts);
    const std::wstring wide = code.toStdWString();
    for (int i = 0; i < count; ++i) {
        if (wcscmp(charExts[i]->Code, wide.c_str()) == 0) {
            *charExt = charExts[i];
            return 0;
        }
    }
    return WCC_ERR_NOT_FOUND;
}
