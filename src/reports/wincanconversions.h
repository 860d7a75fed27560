#pragma once

#include <QString>

// The WinCan exchange file holds catalogue codes; the report shows their words.
// A code is matched without regard to case unless told otherwise, and a code no
// table knows is shown as it stands. The words are the catalogue's own English.
class WinCanConversions
{
public:
    static QString convertWinCanWeather(const QString &code);
    static QString convertWinCanPreCleaned(const QString &code);
    static QString convertWinCanMethod(const QString &code);
    static QString convertWinCanGrade(const QString &code);
    static QString convertWinCanUse(const QString &code);
    static QString convertWinCanFlow(const QString &code);
    static QString convertWinCanType(const QString &code);
    static QString convertWinCanPurpose(const QString &code);
    static QString convertWinCanLining(const QString &code);
    // "BLG" depends on the project's catalogue, read from its .project.wdb.
    static QString convertWinCanLocation(const QString &code, const QString &projectFile);
    // Exact case; an unknown shape is "Unknown". Every word ends with a blank.
    static QString convertShapecode(const QString &code);
    static QString convertWinCanLiningMat(const QString &code);
    static QString convertWinCanMaterial(const QString &code);
};
