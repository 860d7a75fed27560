#pragma once

#include "survey/wincan/defectcodechain.h"
#include "wccat.h"

#include <QStringList>

class WCCatalogue;

// The questions of a WinCan section, all from the defect catalogue: the tree
// to pick an observation from, where each level's "Cancel" goes one level up
// and the top one back to the mode menu; the start node type and water level
// when recording starts; and, when Stop is pressed, the confirmation, the pipe
// serviceability (MSCC-5), the closing of every open continuous defect and the
// finish node type, whose entry ends the recording.
//
// The node types live at fixed places in each catalogue (class, base code,
// extension), which nodeLayout() knows.
class WinCanChain : public DefectCodeChain
{
    Q_OBJECT
public:
    explicit WinCanChain(QObject *parent = nullptr);

    // The rows of "Enter Pipe Serviceability", in their stored order.
    static QStringList serviceabilityRows();
    // MSCC-3 records without start and end node questions.
    static bool asksNodeQuestions();

    void showCatagories();
    void startUpQuestions();
    void stopQuestions();
    // Closes every open continuous defect, then asks for the finish node.
    void finishSection();

public slots:
    void menuCatagories(int row);
    void menuBasecodes(int row);
    void menuCharExt1(int row);
    void menuCharExt2(int row);
    void menuStartUpExt2(int row);
    void menuStopExt2(int row);
    void stopDialogue(int row);
    void serviceabilityDialogue(int row);

private:
    // The catalogue in use; null, with a note to the operator, when it cannot be read.
    WCCatalogue *treeCatalogue();
    void showBasecodes();
    void showCharExt1();
    void showCharExt2();
    void showStartNode();
    void showStopNode();
    // The start or finish node extension of the catalogue in use, reached
    // through the tree fields; null when the catalogue has none.
    WCCatCharExt *nodeLayout(bool atStop);

    WCCatCodeClass *m_class = nullptr;
    WCCatBaseCode *m_basecode = nullptr;
    WCCatCharExt *m_charext1 = nullptr;
    WCCatCharExt *m_charext2 = nullptr;
};
