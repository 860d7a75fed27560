#pragma once

#include "wccat.h"

#include <QString>
#include <deque>
#include <map>
#include <initializer_list>
#include <vector>

class QIODevice;
class QXmlStreamReader;

// One catalogue file read into the records the C interface hands out. The
// records live in deques so that their addresses stay put while the file is
// read and for as long as the catalogue is open.
class CatalogFile
{
public:
    // Reads the whole file; on failure returns WCC_ERR_FILE or WCC_ERR_FORMAT
    // and errorText() says why.
    int read(const QString &path);
    int read(QIODevice *device, const QString &name);
    QString errorText() const { return m_error; }

    WCCatVersion_t version{};
    WCCatCatalog_t info{};
    std::vector<WCCatCodeClass_t *> classes;
    std::vector<WCCatBaseCode_t *> baseCodes;
    std::vector<WCCatCharExt_t *> charExts;
    std::map<const void *, std::vector<WCCatBaseCode_t *>> baseCodesByClass;
    std::map<const void *, std::vector<WCCatCharExt_t *>> charExtsByParent;
    std::map<const void *, std::vector<WCCatParameter_t *>> paramsByRecord;

private:
    // What an element inside <class> may be nested in.
    struct Open {
        WCCatBaseCode_t *baseCode = nullptr;
        WCCatCharExt_t *charExt = nullptr;
    };

    bool readCatalogue(QXmlStreamReader &xml);
    bool readClass(QXmlStreamReader &xml);
    bool readCodeTree(QXmlStreamReader &xml, WCCatCodeClass_t *codeClass);
    bool admitRecord(QXmlStreamReader &xml, const char *element, std::initializer_list<const char *> required);
    WCCatBaseCode_t *addBaseCode(QXmlStreamReader &xml, WCCatCodeClass_t *codeClass);
    WCCatCharExt_t *addCharExt(QXmlStreamReader &xml, const Open &parent);
    bool addParam(QXmlStreamReader &xml, const Open &owner);
    void readVersion(QXmlStreamReader &xml);
    void readInfo(QXmlStreamReader &xml);
    bool fail(QXmlStreamReader &xml, const QString &why);
    QString nextId(const QString &kind);

    std::deque<WCCatCodeClass_t> m_classes;
    std::deque<WCCatBaseCode_t> m_baseCodes;
    std::deque<WCCatCharExt_t> m_charExts;
    std::deque<WCCatParameter_t> m_params;
    QString m_error;
    QString m_name;
    int m_records = 0;
};
