#pragma once

#include "survey/corvane/corvanedata.h"
#include "survey/surveycontroller.h"

#include <QStringList>

class CorvaneQuestions;
class QTimer;
class WrcChain;
class exportPDF;

template <typename T>
class Singleton;

// The ostra reporting mode: the mode key's menus, the life of a project
// ("<site>.sur") and its sections ("section_<n>"), the questions asked at the
// start and end of a recorded section (CorvaneQuestions), and the report triggers.
//
// Menus are shown on the video screen; each answer comes back to one of the
// slots below, as (row) from a menu or (key, text) from a text entry, key 0
// meaning Cancel or Escape. The section questions answer to CorvaneQuestions.
class CorvaneController : public SurveyController
{
    Q_OBJECT
public:
    enum popup_type { kStartmessage = 0, kNewSection = 1 };
    Q_ENUM(popup_type)

    static constexpr int kInstructionDelayMs = 250;
    static constexpr int kReportNoteMs = 2000;
    static constexpr int kBeginNoteMs = 4000;

    static CorvaneController *instance(QObject *parent = nullptr);

    int prepareDirectory() override;
    // Writes the project file.
    int surveyfileInit() override;
    void button_push() override;
    // The standard layout has no section form, so it is always ready to record;
    // the WRC layout records only once its section form has been entered.
    bool sectionOpen() const override;

    CorvaneData *surveyData() { return &m_surveyData; }
    // The standard question chains, started by the survey manager on Record and Stop.
    void startostraPopUp();
    void showOstraEndQuestions();
    CorvaneQuestions *questions() const { return m_questions; }
    // The question chains of the WRC schema, on the current screen.
    WrcChain *wrcChain();

public slots:
    // The project form saved: make the project folder and file, then a section.
    void setProjectPath();
    // The project form was left with Escape.
    void cvStopped();
    // The section form saved.
    void editSectionDatabase();
    // The engineer's notes page closed.
    void endEngNotes();
    void showInstructions(CorvaneController::popup_type type);
    void closeDialogue();
    void skipRunInfo();
    void saveSectionDatabase();
    void updateEndNode(QString text);
    void exportProject();
    // The report key: clears the report cache and offers the report to the ostra app.
    void exportAsPDF();
    void finishResize(QString path);
    void showReportProgress(QString text);
    void stop();

    // Menu answers.
    void menuSelected(int row);
    void menuWRC(int row);
    void menuDeselected(int row);
    void menuOstraSelected(int row);
    void menuObservation(int row);
    void menuEndSection(int row);
    void openCVProject(int row);
    void openOstraMenu(int answer);
    void menuReportTransfer(int row);

    void showInstructionsSlot();
    void closePopUp();

signals:
    // The end node is given: the manager takes the section's closing picture.
    void goodStop();
    void enterEngNotesSig();
    void closeMessageBox();
    void resizeFinished();
    // The forms and pages belong to the screen controller, which takes these.
    void selectSiteInfoScreen();
    void selectWRCSiteInfoScreen();
    void selectWRCRunInfoScreen();
    void selectEngNoteScreen();

protected:
    QString dbExt() const override { return QStringLiteral(".sdb"); }

private slots:
    void handleStart();
    void handleNewProject();
    void handleOpenProject();
    void handleNewSection();
    // The start questions are answered: the note to begin, closed by itself after a while.
    void beginSurvey();
    void endSection();

private:
    friend class Singleton<CorvaneController>;
    explicit CorvaneController(QObject *parent);
    static QString projectFolderName();
    void showSelectMenu(const QStringList &rows, const char *slot);
    void showTextEntry(const QString &title, const char *slot, bool mandatory = false);
    void sendReturnToScreen();
    QString siteImageRow() const;
    QString reportFile() const;
    void offerReportTransfer();
    QString mapRow() const;
    void showImageNote();

    CorvaneData m_surveyData;
    QString m_cv_path;
    QStringList m_cv_projects;
    QString inputReportPath;
    // The report being made; the converter's end deletes it.
    exportPDF *PDF = nullptr;
    // Closes the "Please begin the survey" note unless the section ended first.
    QTimer *m_timer = nullptr;
    bool mOstraInstruction = false;
    popup_type mPopupType = kStartmessage;
    CorvaneQuestions *m_questions = nullptr;
    WrcChain *m_wrc = nullptr;
};
