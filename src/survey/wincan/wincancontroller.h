#pragma once

#include "survey/surveycontroller.h"
#include "survey/wincan/wincandata.h"

#include <QStringList>

class WinCanChain;
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
    // MSCC-3 records without start and end node questions.
    static bool asksNodeQuestions();

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

    // Menu answers.
    void menuSelected(int row);
    void menuDeselected(int row);
    void menuObservation(int row);
    void menuEndSection(int row);
    void openWCProject(int row);
    void menuReportTransfer(int row);
    void openWinCanMenu(int answer);

signals:
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

    // The section's questions, on the current screen.
    WinCanChain *chain();
    QString mapRow() const;
    QStringList statusItems();
    void createReport();
    void offerReportTransfer();

    WinCanData m_surveyData;
    QString m_section_name = QStringLiteral("not-set");
    QString m_wc_path;
    QStringList m_wc_projects;
    exportPDF *PDF = nullptr;
    QTimer *m_timer = nullptr;
    QString inputReportPath;
    // The catalogue tree, codes typed by letter, the node questions and the
    // continuous defects.
    WinCanChain *m_chain = nullptr;
};
