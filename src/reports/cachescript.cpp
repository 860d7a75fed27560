#include "reports/cachescript.h"

#include "core/unitpaths.h"

#include <QDebug>
#include <QProcess>

void runClearCacheAndWait()
{
    QProcess script;
    script.start(QStringLiteral("/bin/sh"), {unitScriptPath(QStringLiteral("clear_cache.sh"))});
    if (!script.waitForFinished(30000))
        qWarning() << "clear_cache.sh did not run:" << script.errorString();
}
