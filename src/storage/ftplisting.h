#pragma once

#include <QList>
#include <QString>

// What the unit's FTP scan scripts print: one "DIR: <path>" or "FILE: <path>"
// line for each entry of the site, the path from the site's root. Anything else
// in the output (lftp's own complaints, a half line cut by a time limit) is not
// an entry.
class FtpListing
{
public:
    struct Entry {
        QString path;
        bool isDir = false;
    };

    static QList<Entry> parse(const QString &output);
    // The entries strictly below FOLDER, with paths relative to it. None steps
    // out of it: a name of dots would put a download outside its target.
    static QList<Entry> below(const QString &output, const QString &folder);
};
