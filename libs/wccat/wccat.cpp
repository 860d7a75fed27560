#include "wccat.h"

#include "catalogfile.h"

#include <QDebug>
#include <QMutex>
#include <QMutexLocker>
#include <QString>

#include <memory>
#include <vector>

namespace {

// One slot per catalogue the console may hold open at once, with room to spare.
constexpr int kMaxOpen = 16;

QMutex s_lock;
std::unique_ptr<CatalogFile> s_open[kMaxOpen];

// Stands in for the array of an empty list, so callers never see a null array.
template <typename T>
T **emptyArray()
{
    static T *none[1] = {nullptr};
    return none;
}

template <typename T>
int handOut(std::vector<T *> &records, T ***array)
{
    if (!array)
        return WCC_ERR_ARGUMENT;
    *array = records.empty() ? emptyArray<T>() : records.data();
    return int(records.size());
}

CatalogFile *catalogue(int handle)
{
    if (handle < 0 || handle >= kMaxOpen)
        return nullptr;
    return s_open[handle].get();
}

template <typename T, typename Map>
int childrenOf(int handle, const void *parent, Map CatalogFile::*table, T ***array)
{
    if (array)
        *array = nullptr;
    QMutexLocker lock(&s_lock);
    CatalogFile *file = catalogue(handle);
    if (!file)
        return WCC_ERR_NOT_OPEN;
    if (!parent || !array)
        return WCC_ERR_ARGUMENT;
    auto found = (file->*table).find(parent);
    if (found == (file->*table).end())
        return WCC_ERR_NOT_FOUND;
    return handOut(found->second, array);
}

bool isUtf8(const wchar_t *encoding)
{
    return !encoding || QString::fromWCharArray(encoding).compare(QLatin1String("UTF8"), Qt::CaseInsensitive) == 0;
}

} // namespace

extern "C" {

const wchar_t *WCC_GetInterfaceVersion(void)
{
    return L"1.0 (Ductline WCCat 1.0.0)";
}

int WCC_OpenCatalogEx(const wchar_t *path, int readOnly, const wchar_t *encoding, int mask)
{
    Q_UNUSED(readOnly)
    Q_UNUSED(mask)
    if (!path || !*path)
        return WCC_ERR_ARGUMENT;
    if (!isUtf8(encoding))
        return WCC_ERR_ENCODING;
    auto file = std::make_unique<CatalogFile>();
    const QString name = QString::fromWCharArray(path);
    const int result = file->read(name);
    if (result != WCC_OK) {
        qWarning().noquote() << "WCCat: cannot open catalogue" << name << file->errorText();
        return result;
    }
    QMutexLocker lock(&s_lock);
    for (int handle = 0; handle < kMaxOpen; ++handle) {
        if (!s_open[handle]) {
            s_open[handle] = std::move(file);
            return handle;
        }
    }
    return WCC_ERR_TOO_MANY;
}

int WCC_CloseCatalog(int handle, int discard)
{
    Q_UNUSED(discard)
    QMutexLocker lock(&s_lock);
    if (!catalogue(handle))
        return WCC_ERR_NOT_OPEN;
    s_open[handle].reset();
    return WCC_OK;
}

int WCC_GetVersionInfo(int handle, WCCatVersion_t **version)
{
    QMutexLocker lock(&s_lock);
    CatalogFile *file = catalogue(handle);
    if (!file)
        return WCC_ERR_NOT_OPEN;
    if (!version)
        return WCC_ERR_ARGUMENT;
    *version = &file->version;
    return WCC_OK;
}

int WCC_GetCatalogInfo(int handle, WCCatCatalog_t **info)
{
    QMutexLocker lock(&s_lock);
    CatalogFile *file = catalogue(handle);
    if (!file)
        return WCC_ERR_NOT_OPEN;
    if (!info)
        return WCC_ERR_ARGUMENT;
    *info = &file->info;
    return WCC_OK;
}

int WCC_GetCodeClasses(int handle, WCCatCodeClass_t ***classes)
{
    QMutexLocker lock(&s_lock);
    CatalogFile *file = catalogue(handle);
    if (!file)
        return WCC_ERR_NOT_OPEN;
    return handOut(file->classes, classes);
}

int WCC_GetBaseCodesByClass(int handle, const WCCatCodeClass_t *codeClass, WCCatBaseCode_t ***baseCodes)
{
    return childrenOf(handle, codeClass, &CatalogFile::baseCodesByClass, baseCodes);
}

int WCC_GetCharExtsByBaseCode(int handle, const WCCatBaseCode_t *baseCode, WCCatCharExt_t ***charExts)
{
    return childrenOf(handle, baseCode, &CatalogFile::charExtsByParent, charExts);
}

int WCC_GetCharExtsByCharExt(int handle, const WCCatCharExt_t *charExt, WCCatCharExt_t ***charExts)
{
    return childrenOf(handle, charExt, &CatalogFile::charExtsByParent, charExts);
}

int WCC_GetAllBaseCodes(int handle, WCCatBaseCode_t ***baseCodes)
{
    QMutexLocker lock(&s_lock);
    CatalogFile *file = catalogue(handle);
    if (!file)
        return WCC_ERR_NOT_OPEN;
    return handOut(file->baseCodes, baseCodes);
}

int WCC_GetAllCharExts(int handle, WCCatCharExt_t ***charExts)
{
    QMutexLocker lock(&s_lock);
    CatalogFile *file = catalogue(handle);
    if (!file)
        return WCC_ERR_NOT_OPEN;
    return handOut(file->charExts, charExts);
}

int WCC_GetParamsByDefectCode(int handle, const wchar_t *code, WCCatParameter_t ***params)
{
    if (params)
        *params = nullptr;
    QMutexLocker lock(&s_lock);
    CatalogFile *file = catalogue(handle);
    if (!file)
        return WCC_ERR_NOT_OPEN;
    if (!code || !params)
        return WCC_ERR_ARGUMENT;
    // An extension's code is the more specific one and wins over a base code.
    for (WCCatCharExt_t *charExt : file->charExts) {
        if (wcscmp(charExt->Code, code) == 0)
            return handOut(file->paramsByRecord[charExt], params);
    }
    for (WCCatBaseCode_t *baseCode : file->baseCodes) {
        if (wcscmp(baseCode->Code, code) == 0)
            return handOut(file->paramsByRecord[baseCode], params);
    }
    return WCC_ERR_NOT_FOUND;
}

} // extern "C"
