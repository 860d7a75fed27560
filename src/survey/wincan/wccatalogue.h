#pragma once

#include "wccat.h"

#include <QString>
#include <QStringList>

// One open defect catalogue of the catalogue library. Records handed out belong
// to the library and stay valid while the catalogue is open.
//
// The string lists leave out records marked virtual, but the by-index getters
// count in the library's full arrays: a menu row after a virtual record names
// the record before it. Operators' menus have always worked so; kept.
class WCCatalogue
{
public:
    WCCatalogue() = default;
    ~WCCatalogue();
    WCCatalogue(const WCCatalogue &) = delete;
    WCCatalogue &operator=(const WCCatalogue &) = delete;

    // 0 on success, else the library's (negative) error.
    int open(const wchar_t *path);
    int open(QString &path);
    void close();
    bool isOpen() const { return m_cat >= 0; }

    WCCatVersion_t *versionInfo() const;
    WCCatCatalog_t *catalogInfo() const;
    // Bytes taken by the records, roughly.
    qint64 approxMemUsage() const;
    static QString getInterfaceVersion();

    QStringList getCatagoryStringList() const;
    QStringList getBaseCodesStringList(WCCatCodeClass *codeClass) const;
    QStringList getCharExt1StringList(WCCatBaseCode *baseCode) const;
    QStringList getCharExt2StringList(WCCatCharExt *charExt) const;

    WCCatCodeClass *getCatagoryClass(int index) const;
    WCCatBaseCode *getBasecode(WCCatCodeClass *codeClass, int index) const;
    WCCatCharExt *getCharExtClass(WCCatBaseCode *baseCode, int index) const;
    WCCatCharExt *getCharExtClass(WCCatCharExt *charExt, int index) const;

    // The parameter count of a code, or a negative error (-4 closed, -7 unknown).
    int getParams(QString &code, WCCatParam ***params) const;
    int getBaseCode(QString &code, WCCatBaseCode **baseCode) const;
    int getCharExtCode(QString &code, WCCatCharExt **charExt) const;

private:
    int m_cat = -1;
};
