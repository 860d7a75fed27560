#include "catalogfile.h"

#include <QFile>
#include <QUuid>
#include <QXmlStreamReader>

namespace {

// A catalogue is a few thousand records at most; a file that claims far more
// is broken or hostile and would only eat the unit's memory.
constexpr int kMaxRecords = 100000;
// The console walks two levels of character extensions.
constexpr int kMaxExtensionDepth = 2;
const QString kFormatVersion = QStringLiteral("1");

template <size_t N>
void copyText(wchar_t (&target)[N], const QString &text)
{
    const QVector<uint> characters = text.toUcs4();
    size_t length = qMin(size_t(characters.size()), N - 1);
    for (size_t i = 0; i < length; ++i)
        target[i] = wchar_t(characters.at(int(i)));
    target[length] = L'\0';
}

template <size_t N>
void copyAttribute(wchar_t (&target)[N], const QXmlStreamAttributes &attributes, const char *name)
{
    copyText(target, attributes.value(QLatin1String(name)).toString());
}

bool flagAttribute(const QXmlStreamAttributes &attributes, const char *name)
{
    const QStringRef value = attributes.value(QLatin1String(name));
    return value == QLatin1String("1") || value == QLatin1String("true") || value == QLatin1String("yes");
}

// Codes and their extensions describe themselves with the same attributes.
template <typename Record>
void copyCodeAttributes(Record *record, const QXmlStreamAttributes &attributes)
{
    copyAttribute(record->Item, attributes, "item");
    copyAttribute(record->Remarks, attributes, "remarks");
    copyAttribute(record->Code, attributes, "code");
    copyAttribute(record->AltCode, attributes, "altCode");
    copyAttribute(record->ObsText, attributes, "text");
    copyAttribute(record->ChildCaption, attributes, "childCaption");
    copyAttribute(record->CloseCode, attributes, "closeCode");
}

} // namespace

int CatalogFile::read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        m_error = file.errorString();
        return WCC_ERR_FILE;
    }
    return read(&file, path);
}

int CatalogFile::read(QIODevice *device, const QString &name)
{
    m_name = name;
    QXmlStreamReader xml(device);
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("catalogue")) {
        fail(xml, xml.hasError() ? xml.errorString() : QStringLiteral("no <catalogue> element"));
        return WCC_ERR_FORMAT;
    }
    if (!readCatalogue(xml))
        return WCC_ERR_FORMAT;
    // Whatever follows the catalogue element must still be well-formed XML.
    while (!xml.atEnd())
        xml.readNext();
    if (xml.hasError()) {
        fail(xml, xml.errorString());
        return WCC_ERR_FORMAT;
    }
    info.HasClasses = !classes.empty();
    info.HasCodes = !baseCodes.empty();
    info.HasChars = !charExts.empty();
    info.HasParams = !m_params.empty();
    info.IsInstalled = 1;
    return WCC_OK;
}

bool CatalogFile::fail(QXmlStreamReader &xml, const QString &why)
{
    m_error = QStringLiteral("%1 line %2: %3").arg(m_name).arg(xml.lineNumber()).arg(why);
    return false;
}

// Each record needs its identifying attributes, and the file stays under the
// record limit that keeps a hostile catalogue from taking all memory.
bool CatalogFile::admitRecord(QXmlStreamReader &xml, const char *element, std::initializer_list<const char *> required)
{
    const QXmlStreamAttributes attributes = xml.attributes();
    for (const char *name : required) {
        if (attributes.value(QLatin1String(name)).isEmpty())
            return fail(xml, QStringLiteral("<%1> without %2").arg(QLatin1String(element), QLatin1String(name)));
    }
    if (++m_records > kMaxRecords)
        return fail(xml, QStringLiteral("more than %1 records").arg(kMaxRecords));
    return true;
}

QString CatalogFile::nextId(const QString &kind)
{
    // Stable across readings of the same file, so a reference stays meaningful.
    static const QUuid kNamespace = QUuid(QStringLiteral("{6f1d2c9a-3b1e-4f52-9a51-7d0c2e4b8a10}"));
    const QString name = QString::fromWCharArray(version.Type) + QLatin1Char('/') + kind + QLatin1Char('/')
                         + QString::number(m_records);
    return QUuid::createUuidV5(kNamespace, name).toString(QUuid::WithoutBraces);
}

bool CatalogFile::readCatalogue(QXmlStreamReader &xml)
{
    const QStringRef format = xml.attributes().value(QLatin1String("format"));
    if (format != kFormatVersion)
        return fail(xml, QStringLiteral("format \"%1\" is not %2").arg(format.toString(), kFormatVersion));
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("version")) {
            readVersion(xml);
            xml.skipCurrentElement();
        } else if (xml.name() == QLatin1String("info")) {
            readInfo(xml);
            xml.skipCurrentElement();
        } else if (xml.name() == QLatin1String("class")) {
            if (!readClass(xml))
                return false;
        } else {
            return fail(xml, QStringLiteral("unknown element <%1>").arg(xml.name().toString()));
        }
    }
    if (xml.hasError())
        return fail(xml, xml.errorString());
    return true;
}

void CatalogFile::readVersion(QXmlStreamReader &xml)
{
    const QXmlStreamAttributes attributes = xml.attributes();
    copyAttribute(version.Date, attributes, "date");
    copyAttribute(version.Version, attributes, "version");
    copyAttribute(version.Type, attributes, "type");
    copyAttribute(version.Creator, attributes, "creator");
    copyAttribute(version.Memo, attributes, "memo");
    copyText(version.UniqueId, nextId(QStringLiteral("version")));
}

void CatalogFile::readInfo(QXmlStreamReader &xml)
{
    const QXmlStreamAttributes attributes = xml.attributes();
    copyText(info.UniqueId, nextId(QStringLiteral("catalogue")));
    copyAttribute(info.Country, attributes, "country");
    copyAttribute(info.Language, attributes, "language");
    copyAttribute(info.ObjectType, attributes, "objectType");
    copyAttribute(info.BaseType, attributes, "baseType");
    copyAttribute(info.CustomType, attributes, "customType");
    copyAttribute(info.Version, attributes, "version");
    copyAttribute(info.Created, attributes, "created");
    copyAttribute(info.Description, attributes, "description");
    copyAttribute(info.Publisher, attributes, "publisher");
    copyAttribute(info.Copyright, attributes, "copyright");
    info.IsCustom = flagAttribute(attributes, "custom");
}

bool CatalogFile::readClass(QXmlStreamReader &xml)
{
    const QXmlStreamAttributes attributes = xml.attributes();
    if (!admitRecord(xml, "class", {"item"}))
        return false;
    m_classes.emplace_back();
    WCCatCodeClass_t *codeClass = &m_classes.back();
    copyText(codeClass->UniqueId, nextId(QStringLiteral("class")));
    copyAttribute(codeClass->Item, attributes, "item");
    copyAttribute(codeClass->Remarks, attributes, "remarks");
    copyAttribute(codeClass->ChildCaption, attributes, "childCaption");
    codeClass->IsVirtual = flagAttribute(attributes, "virtual");
    codeClass->SortOrder = int(classes.size());
    classes.push_back(codeClass);
    baseCodesByClass[codeClass];
    return readCodeTree(xml, codeClass);
}

// Reads the codes of one class without recursion: a stack of the open
// <code>/<ext> elements says where each <ext> and <param> belongs.
bool CatalogFile::readCodeTree(QXmlStreamReader &xml, WCCatCodeClass_t *codeClass)
{
    std::vector<Open> open;
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::EndElement) {
            if (open.empty())
                return true; // </class>
            open.pop_back();
            continue;
        }
        if (token != QXmlStreamReader::StartElement)
            continue;
        const QStringRef name = xml.name();
        if (name == QLatin1String("code")) {
            if (!open.empty())
                return fail(xml, QStringLiteral("<code> inside a code"));
            WCCatBaseCode_t *baseCode = addBaseCode(xml, codeClass);
            if (!baseCode)
                return false;
            open.push_back({baseCode, nullptr});
        } else if (name == QLatin1String("ext")) {
            if (open.empty())
                return fail(xml, QStringLiteral("<ext> outside a code"));
            if (open.size() > kMaxExtensionDepth)
                return fail(xml, QStringLiteral("<ext> nested deeper than %1").arg(kMaxExtensionDepth));
            WCCatCharExt_t *charExt = addCharExt(xml, open.back());
            if (!charExt)
                return false;
            open.push_back({open.back().baseCode, charExt});
        } else if (name == QLatin1String("param")) {
            if (open.empty())
                return fail(xml, QStringLiteral("<param> outside a code"));
            if (!addParam(xml, open.back()))
                return false;
            xml.skipCurrentElement();
        } else {
            return fail(xml, QStringLiteral("unknown element <%1>").arg(name.toString()));
        }
    }
    return fail(xml, xml.hasError() ? xml.errorString() : QStringLiteral("unexpected end of file"));
}

WCCatBaseCode_t *CatalogFile::addBaseCode(QXmlStreamReader &xml, WCCatCodeClass_t *codeClass)
{
    const QXmlStreamAttributes attributes = xml.attributes();
    if (!admitRecord(xml, "code", {"code", "item"}))
        return nullptr;
    m_baseCodes.emplace_back();
    WCCatBaseCode_t *baseCode = &m_baseCodes.back();
    copyText(baseCode->UniqueId, nextId(QStringLiteral("code")));
    std::copy(std::begin(codeClass->UniqueId), std::end(codeClass->UniqueId), baseCode->ClassRef);
    std::vector<WCCatBaseCode_t *> &siblings = baseCodesByClass[codeClass];
    baseCode->Ordinal = int(siblings.size());
    baseCode->Level = 1;
    copyCodeAttributes(baseCode, attributes);
    baseCode->IsVirtual = flagAttribute(attributes, "virtual");
    baseCode->SortOrder = baseCode->Ordinal;
    siblings.push_back(baseCode);
    codeClass->NumOfBaseCode = int(siblings.size());
    baseCodes.push_back(baseCode);
    charExtsByParent[baseCode];
    paramsByRecord[baseCode];
    return baseCode;
}

WCCatCharExt_t *CatalogFile::addCharExt(QXmlStreamReader &xml, const Open &parent)
{
    const QXmlStreamAttributes attributes = xml.attributes();
    if (!admitRecord(xml, "ext", {"code", "item"}))
        return nullptr;
    m_charExts.emplace_back();
    WCCatCharExt_t *charExt = &m_charExts.back();
    copyText(charExt->UniqueId, nextId(QStringLiteral("ext")));
    std::copy(std::begin(parent.baseCode->UniqueId), std::end(parent.baseCode->UniqueId), charExt->BaseCodeRef);
    if (parent.charExt)
        std::copy(std::begin(parent.charExt->UniqueId), std::end(parent.charExt->UniqueId), charExt->CharExtRef);
    const void *key = parent.charExt ? static_cast<const void *>(parent.charExt) : parent.baseCode;
    std::vector<WCCatCharExt_t *> &siblings = charExtsByParent[key];
    charExt->Ordinal = int(siblings.size());
    charExt->Level = parent.charExt ? 3 : 2;
    copyCodeAttributes(charExt, attributes);
    charExt->SortOrder = charExt->Ordinal;
    siblings.push_back(charExt);
    if (parent.charExt)
        parent.charExt->NumOfCharExt = int(siblings.size());
    else
        parent.baseCode->NumOfCharExt = int(siblings.size());
    charExts.push_back(charExt);
    charExtsByParent[charExt];
    paramsByRecord[charExt];
    return charExt;
}

bool CatalogFile::addParam(QXmlStreamReader &xml, const Open &owner)
{
    const QXmlStreamAttributes attributes = xml.attributes();
    if (!admitRecord(xml, "param", {"placeholder"}))
        return false;
    m_params.emplace_back();
    WCCatParameter_t *param = &m_params.back();
    copyText(param->UniqueId, nextId(QStringLiteral("param")));
    std::copy(std::begin(param->UniqueId), std::end(param->UniqueId), param->ParamRef);
    std::copy(std::begin(owner.baseCode->UniqueId), std::end(owner.baseCode->UniqueId), param->BaseCodeRef);
    if (owner.charExt)
        std::copy(std::begin(owner.charExt->UniqueId), std::end(owner.charExt->UniqueId), param->CharExtRef);
    copyAttribute(param->ParamId, attributes, "placeholder");
    copyAttribute(param->Placeholder, attributes, "placeholder");
    copyAttribute(param->DataType, attributes, "type");
    copyAttribute(param->Caption, attributes, "caption");
    copyAttribute(param->Prefix, attributes, "prefix");
    copyAttribute(param->Suffix, attributes, "suffix");
    copyAttribute(param->Unit, attributes, "unit");
    copyAttribute(param->Default, attributes, "default");
    param->Mandatory = flagAttribute(attributes, "mandatory");
    param->RangeFrom = attributes.value(QLatin1String("from")).toDouble();
    param->RangeTo = attributes.value(QLatin1String("to")).toDouble();
    param->ClockType = param->Unit == std::wstring(L"o'clock") || param->Suffix == std::wstring(L"o'clock");
    const void *key = owner.charExt ? static_cast<const void *>(owner.charExt) : owner.baseCode;
    std::vector<WCCatParameter_t *> &params = paramsByRecord[key];
    param->SortOrder = int(params.size());
    params.push_back(param);
    if (owner.charExt)
        owner.charExt->NumOfParams = int(params.size());
    else
        owner.baseCode->NumOfParams = int(params.size());
    return true;
}
