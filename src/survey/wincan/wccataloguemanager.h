#pragma once

#include <QObject>

class WCCatalogue;
template <typename T>
class Singleton;

// Holds one catalogue per coding specification, opened on first use and kept
// open, and knows which specification the operator works to.
class WCCatalogueManager : public QObject
{
    Q_OBJECT
public:
    enum Specification {
        kWCCat_NONE = 0,
        kWCCat_Default = 1,
        kWCCat_MSCC_3 = 3,
        kWCCat_MSCC_4 = 4,
        kWCCat_MSCC_5 = 5,
        kWCCat_MSCC_5_Domestic = 6
    };
    Q_ENUM(Specification)

    static WCCatalogueManager *instance(QObject *parent = nullptr);

    // kWCCat_Default means the current specification; null when the file is
    // missing or broken, or for a value that names no catalogue.
    WCCatalogue *catalogue(Specification specification = kWCCat_Default);
    Specification specification() const { return m_specification; }
    void setSpecification(int specification);
    // The unit path of a specification's catalogue file; empty for none.
    static QString cataloguePath(Specification specification);

private:
    friend class Singleton<WCCatalogueManager>;
    explicit WCCatalogueManager(QObject *parent);
    static Specification known(int value);

    WCCatalogue *m_cat[4] = {nullptr, nullptr, nullptr, nullptr};
    Specification m_specification = kWCCat_MSCC_4;
};
