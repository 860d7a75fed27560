#pragma once

#include "survey/corvane/corvanedata.h"
#include "survey/surveycontroller.h"

#include <QStringList>

class QTimer;
class WrcChain;

// The ostra reporting mode: the mode key's menus, the life of a project
// ("<site>.sur") and its sections ("section_<n>"), the questions asked at the
// start and end of a recorded section, and the report triggers.
//
// Menus and questions are shown on the video screen; each answer comes back to
// one of the slots below, as (row) from a menu or (key, text) from a text entry,
// key 0 meaning Cancel or Escape.
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
    void exportAsPDF();
    void finishResize(QString path);
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

    // Start questions.
    void handleSurveyedBy(int key, QString text);
    void handleStartNode(int key, QString text);
    void handleInvertDepth(int key, QString text);
    void handleMaterial(int row);
    void handleOtherMaterial(int key, QString text);
    void handlePipeSize(int key, QString text);
    void handleWaterLevel(int key, QString text);
    void handleFlowDirection(int row);

    // End questions.
    void handleEndNode(int key, QString text);
    void handleUsage(int row);
    void handleOtherUsage(int key, QString text);

    void showInstructionsSlot();
    void closePopUp();

signals:
    // The end node is given: the manager takes the section's closing picture.
    void goodStop();
    void enterEngNotesSig();
    void closeMessageBox();
    void resizeFinished();

protected:
    QString dbExt() const override { return QStringLiteral(".sdb"); }

private slots:
    void handleStart();
    void handleNewProject();
    void handleOpenProject();
    void handleNewSection();
    void selectEngineersNotes();

private:
    explicit CorvaneController(QObject *parent);
    static QString projectFolderName();
    void showSelectMenu(const QStringList &rows, const char *slot);
    void showMenu(const QString &title, const QStringList &rows, const char *slot);
    void showTextEntry(const QString &title, const char *slot, bool mandatory = false);
    void showNote(const QString &text, const char *slot = nullptr);
    void sendReturnToScreen();
    void adjustSectionInformation(const QString &key, const QString &value);
    void setStatusItem(int item, const QString &text);
    void askInvertDepth();
    void askPipeSize();
    void askUsage();
    void endSection();
    QString siteImageRow() const;
    QString mapRow() const;
    void showImageNote();

    CorvaneData m_surveyData;
    QString m_cv_path;
    QStringList m_cv_projects;
    QString inputReportPath;
    // Closes the "Please begin the survey" note unless the section ended first.
    QTimer *m_timer = nullptr;
    bool mOstraInstruction = false;
    popup_type mPopupType = kStartmessage;
    // What the status bar shows during a recording: the node and the water level.
    QStringList m_statusItems{QString(), QString()};
    WrcChain *m_wrc = nullptr;
};
