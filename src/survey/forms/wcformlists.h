#pragma once

#include "survey/wincan/wccataloguemanager.h"

#include <QCoreApplication>
#include <QStringList>

// The rows of the WinCan forms' lists. A list whose codes differ between the
// coding specifications is asked for by specification: MSCC-3 has lists of its
// own, MSCC-4, MSCC-5 and the domestic set share theirs. Every list starts with a
// blank row, so a fact not known stays out of the exchange file.
class WCFormLists
{
    Q_DECLARE_TR_FUNCTIONS(WCFormLists)
public:
    using Specification = WCCatalogueManager::Specification;

    static bool isMscc3(Specification specification);

    // The section's first page.
    static QStringList directions();
    static QStringList pipeMaterials(Specification specification);
    static QStringList pipeShapes();
    static QStringList purposes(Specification specification);
    static QStringList cleanings();

    // The section's second page.
    static QStringList locations(Specification specification);
    static QStringList weathers(Specification specification);
    static QStringList liningMaterials(Specification specification);
    static QStringList temperatures();
    static QStringList usages();
    static QStringList pipeTypes();
    static QStringList liningTypes();
    static QStringList flowControls();
    static QStringList inspectionMethods();
    static QStringList finalCategories();

private:
    static QStringList blankFirst(QStringList rows);
};
