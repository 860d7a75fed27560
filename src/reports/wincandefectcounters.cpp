#include "reports/wincandefectcounters.h"

namespace {

enum class Test { kAlways, kContains, kFirstLetter, kEquals };

struct Counter {
    const char *section;
    const char *total;
    int codeClass;
    Test test;
    const char *codes; // blank-separated for kEquals
};

const Counter kCounterTable[WinCanDefectCounters::kCounters] = {
    {"mSurvAband", "mTotSurvAband", 57, Test::kAlways, ""},
    {"mCuW", "mTotCuW", 98, Test::kContains, "CUW"},
    {"mCracks", "mTotCracks", 54, Test::kFirstLetter, "C"},
    {"mFractures", "mTotFractures", 51, Test::kFirstLetter, "F"},
    {"mBroken", "mTotBroken", 50, Test::kFirstLetter, "B"},
    {"mDeformed", "mTotDeformed", 54, Test::kFirstLetter, "D"},
    {"mCollasped", "mTotCollasped", 51, Test::kFirstLetter, "X"},
    {"mHoles", "mTotHoles", 101, Test::kFirstLetter, "H"},
    {"mSurfDam", "mTotSurfDam", 102, Test::kAlways, ""},
    {"mDispJoin", "mTotDisJoin", 50, Test::kContains, "JD"},
    {"mOpenJoin", "mTotOpenJoin", 50, Test::kContains, "OJ"},
    {"mRoots", "mTotRoots", 53, Test::kFirstLetter, "R"},
    {"mInfil", "mTotInfil", 100, Test::kAlways, ""},
    {"mEncrust", "mTotEncrust", 53, Test::kEquals, "DEE"},
    {"mSilt", "mTotSilt", 53, Test::kEquals, "DES DER DEC DEX"},
    {"mGrease", "mTotGrease", 53, Test::kEquals, "DEG"},
    {"mObstruct", "mTotObstruct", 99, Test::kContains, "OB"},
    {"mWaterLvl", "mTotWaterLvl", 53, Test::kContains, "WL"},
    {"mLnDev", "mTotLnDev", 56, Test::kFirstLetter, "L"},
};

// No class reaches the report with a code, so this matches no row.
constexpr int kClassUnknown = 0;

bool matches(const Counter &counter, const QString &code)
{
    const QString codes = QLatin1String(counter.codes);
    switch (counter.test) {
    case Test::kAlways:
        return true;
    case Test::kContains:
        return code.contains(codes);
    case Test::kFirstLetter:
        return code.startsWith(codes);
    case Test::kEquals:
        return codes.split(QLatin1Char(' ')).contains(code);
    }
    return false;
}

} // namespace

WinCanDefectCounters::WinCanDefectCounters() : sectionDefect(kCounters, 0), totalDefect(kCounters, 0) {}

int WinCanDefectCounters::defectCodeParser(const QString &code)
{
    if (code.isEmpty())
        return -1;
    return counterFor(code, kClassUnknown);
}

int WinCanDefectCounters::counterFor(const QString &code, int codeClass)
{
    for (int i = 0; i < kCounters; ++i) {
        if (kCounterTable[i].codeClass == codeClass && matches(kCounterTable[i], code))
            return i;
    }
    return -1;
}

QStringList WinCanDefectCounters::convertDefectSummary(const QVector<int> &totals)
{
    QStringList text;
    if (totals.size() != kCounters)
        return text;
    for (int total : totals)
        text << QString::number(total);
    return text;
}

QString WinCanDefectCounters::sectionPlaceholder(int counter)
{
    return QLatin1String(kCounterTable[counter].section);
}

QString WinCanDefectCounters::totalPlaceholder(int counter)
{
    return QLatin1String(kCounterTable[counter].total);
}

void WinCanDefectCounters::count(const QString &code)
{
    const int counter = defectCodeParser(code);
    if (counter >= 0)
        ++sectionDefect[counter];
}

void WinCanDefectCounters::closeSection()
{
    for (int i = 0; i < kCounters; ++i)
        totalDefect[i] += sectionDefect.at(i);
    sectionDefect.fill(0);
}

void WinCanDefectCounters::clearTotals()
{
    totalDefect.fill(0);
}
