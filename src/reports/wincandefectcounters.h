#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

// The defect summary of the WinCan report: 19 counters a section and their
// project totals. A code is counted by its catalogue class, and the exchange
// file carries no class: no code is ever counted and every cell reads "0". The
// table keeps what each class would count, ready for a class source.
class WinCanDefectCounters
{
public:
    static constexpr int kCounters = 19;

    WinCanDefectCounters();

    // The counter a code adds to, or -1.
    static int defectCodeParser(const QString &code);
    // The counter of a code of a known class, or -1.
    static int counterFor(const QString &code, int codeClass);
    // The totals as text; empty unless there are exactly 19 of them.
    static QStringList convertDefectSummary(const QVector<int> &totals);

    static QString sectionPlaceholder(int counter);
    static QString totalPlaceholder(int counter);

    void count(const QString &code);
    const QVector<int> &section() const { return sectionDefect; }
    const QVector<int> &totals() const { return totalDefect; }
    // Adds the section's counts to the totals and starts the next section at 0.
    void closeSection();
    void clearTotals();

private:
    QVector<int> sectionDefect;
    QVector<int> totalDefect;
};
