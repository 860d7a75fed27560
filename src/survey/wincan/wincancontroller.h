#pragma once

#include "survey/surveycontroller.h"
#include "survey/wincan/wincandata.h"
#include "wccat.h"

#include <QStringList>

class DefectCodeChain;
class QTimer;
class exportPDF;

template <typename T>
class Singleton;

// The WinCan mode: projects ("<project>.wcs") of sections named by their time
// stamp, whose observations are picked from the defect catalogue tree or typed
// by code. Owns the mode key's menus, the start and end questions at the fixed
// places of each catalogue, and the export and report triggers.
//
// Menus are shown on the video screen; each answer comes back to one of the
// slots below, as (row) from a menu or (key, text) from a text entry, key 0
// meaning Cancel or Escape. The three WinCan forms call setProjectPath,
// wcStopped and setSectionOpen.
class WinCanController : public SurveyController
{
    Q_OBJECT
public:
    static constexpr int kReportNoteMs = 2000;

    // The rows of "Enter Pipe Serviceability", in their stored order.
    static QStringList serviceabilityRows();

    static WinCanController *instance(QObject *parent = nullptr);

    int prepareDirectory() override;
    // Writes the project file.
    int surveyfileInit() override;
    // "<section>-video.mp4" and "<section>-snap0000.jpg" in the section folder.
    QString mpg4Path() override;
    QString snapshotPath() override;
    void button_push() override;
    bool sectionOpen() const override;

    WinCanData *surveyData() { return &m_surveyData; }
    QString sectionName() const { return m_section_name; }
    // A letter key while recording: asks for the rest of the code.
    void text_key(QChar letter);
    // Asked by the survey manager when a recording starts and when Stop is pressed.
    void startUpQuestions();
    void stopQuestions();

public slots:
    // Open: the status bar shows the section's nodes, direction and pipe; closed: it goes.
    void setSectionOpen(bool open) override;
    // The project form saved: make the project folder and file, then a section.
    void setProjectPath();
    // The project form was left with Escape.
    void wcStopped();
    void saveSectionDatabase();
    void updateEndNodeRef(QString text);
    // Writes the exchange file of the open project; with makePdf the report follows.
    void exportProject(bool makePdf);
    void exportDelay();
    void finishResize(QString path);
    // The report key: clears the report cache and offers the report to the ostra app.
    void exportAsPDF();
    void showWaterLevel();
    void showContDefs();
    void closeAllContDefs();
    void handleNotSupported();

    // Menu answers.
    void menuSelected(int row);
    void menuDeselected(int row);
    void menuObservation(int row);
    void menuEndSection(int row);
    void openWCProject(int row);
    void menuCatagories(int row);
    void menuBasecodes(int row);
    void menuCharExt1(int row);
    void menuCharExt2(int row);
    void menuStartUpExt2(int row);
    void menuStopExt2(int row);
    void stopDialogue(int row);
    void serviceabilityDialogue(int row);
    void menuReportTransfer(int row);
    void openWinCanMenu(int answer);

signals:
    void closeMessageBox();
    void winCanResizeFinished();
    // The forms belong to the screen controller, which takes these.
    void selectWCProjectInfoScreen();
    void selectWCSectionInfoScreen();

protected:
    QString dbExt() const override { return QStringLiteral(".wdb"); }

private slots:
    void handleStart();
    void handleNewProject();
    void handleOpenProject();
    void handleNewSection();

private:
    friend class Singleton<WinCanController>;
    explicit WinCanController(QObject *parent);

    void showCatagories();
    void showBasecodes();
    void showCharExt1();
    void showCharExt2();
    void showQuestions(const QString &code, int defCode);
    void showStartNode();
    void showStopNode();
    // The start or finish node extension of the catalogue in use, reached
    // through the tree fields; null when the catalogue has none.
    WCCatCharExt *nodeLayout(bool atStop);
    // MSCC-3 records without start and end node questions.
    static bool asksNodeQuestions();
    QString mapRow() const;
    QStringList statusItems();

    WCCatCodeClass *m_class = nullptr;
    WCCatBaseCode *m_basecode = nullptr;
    WCCatCharExt *m_charext1 = nullptr;
    WCCatCharExt *m_charext2 = nullptr;
    WinCanData m_surveyData;
    QString m_section_name = QStringLiteral("not-set");
    QString m_wc_path;
    QStringList m_wc_projects;
    exportPDF *PDF = nullptr;
    QTimer *m_timer = nullptr;
    QString inputReportPath;
    // Codes typed by letter, the water level and the continuous defects.
    DefectCodeChain *m_chain = nullptr;
};
