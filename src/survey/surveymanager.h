#pragma once

#include "storage/storagebase.h"

#include <QObject>
#include <QString>
#include <QStringList>

class CameraWarnings;
class CorvaneController;
class WinCanController;
class HBIMessageBox;
class IVideoScreen;
class QTimer;
class SurveyController;
class SurveyData;

template <typename T>
class Singleton;

// Knows whether a survey runs and of which kind. Keys, the mobile link and the
// camera warnings reach the survey through it; it picks the controller of the
// current mode, checks storage and project size before recording, walks the
// states Idle -> Ready -> Recording -> Idle and shows the operator's blocking
// messages. It sees the screen only as IVideoScreen.
class SurveyManager : public QObject
{
    Q_OBJECT
public:
    enum SurveyType {
        kSurveyType_UNDEFINED = 0,
        kSurveyType_BASIC = 1,
        kSurveyType_CORVANE = 2,
        kSurveyType_WINCAN = 3,
    };
    Q_ENUM(SurveyType)
    enum SurveyStatus { Failed = 0, Idle = 1, Ready = 2, Recording = 3 };
    Q_ENUM(SurveyStatus)
    enum ActionType {
        kActionCorvane = 0,
        kActionWincan = 1,
        kActionText = 2,
        kActionGraphics = 3,
        kActionPage = 4,
        kActionRecord = 5,
        kActionStop = 6,
        kActionPause = 7,
        kActionPlay = 8,
        kActionStart = 9,
        kActionResetCounter = 10,
        kActionSetCounter = 11,
        kActionPDF = 12,
    };
    Q_ENUM(ActionType)

    // Below this many minutes of recording left on the save-to device a
    // recording is refused.
    static constexpr int kMinimumRecordMinutes = 6;
    // get_project_size.sh's figure at which a project takes no new section.
    static constexpr qint64 kProjectSizeLimit = 3400000;
    static constexpr int kProjectSizeCheckMs = 60000;
    static constexpr int kSiteImageDelayMs = 200;

    // The first call sets the screen; later calls pass nullptr and get the same object.
    static SurveyManager *instance(IVideoScreen *video = nullptr, QObject *parent = nullptr);

    // The second argument is the page number of kActionPage and is ignored otherwise.
    void handleAction(ActionType action, int value);
    void handleText(QChar key);
    // One line of the current section's observation file; nothing while no
    // survey is Ready or Recording.
    void appendObservation(quint64 position, float counter, QString type, QString text);
    void appendEndNodeRef(QString ref);
    void handlestreamRecord(QString ip, QString port);
    void handlestreamStop();
    SurveyData *getSurveyData();
    bool isRecording() const { return m_state == Recording; }
    // The screen has closed the recording.
    void reset();
    // 0 when the section's directory and first file are ready.
    int getReady();
    void setType(SurveyType type) { m_type = type; }
    SurveyType type() const { return m_type; }
    void setStatus(SurveyStatus status) { m_state = status; }
    SurveyStatus status() const { return m_state; }
    void cleanUp();
    // The blocking camera warning. Returns the box's answer as a number, or
    // with atex the passcode the operator typed.
    QString showWarning(QString text, bool atex);
    // Camera warnings are shown in showWarning's box and answered from it.
    void answerCameraWarnings(CameraWarnings *warnings);
    // The project directory of the current mode, with a trailing "/"; empty
    // in a basic survey.
    QString getDirectory();
    void showDialogue(QString title, QStringList rows);
    void showMessage(QString title, QStringList lines);
    void openOstraMenu();

    // The mode controllers register themselves for their survey type.
    void registerController(SurveyType type, SurveyController *controller);

    // Set while a record attempt runs; the headset detection holds off meanwhile.
    bool audioRecordStatus() const { return audiorecordstatus; }
    void setAudioRecordStatus(bool flag) { audiorecordstatus = flag; }

public slots:
    // The headset detection in flight decides the audio mode a recording starts
    // in, so a record attempt waits for it.
    void headsetDetectStarted() { m_headsetDetectFinished = false; }
    void headsetDetectFinished() { m_headsetDetectFinished = true; }
    bool checkProjectSize(QString path);
    void takeSnapshot(bool comment);
    void takeSnapshot();
    void setDiskTime(int mins);
    void handle_saveto_device_changed(StorageBase::StorageItem item, QString path);
    void setCounter(int item, QString meterage);
    void siteImageDelay();
    bool largeProjectCheck();
    bool stop();

signals:
    // The distance text just stored, for the power board's counter.
    void updateCounter(const QString &text);

private:
    friend class Singleton<SurveyManager>;
    SurveyManager(IVideoScreen *video, QObject *parent);

    void handleRecord();
    void handleStop();
    // Shows one refusal in the attempt's box. True when the operator closed it
    // with OK, which ends the attempt.
    bool refuse(HBIMessageBox &box, const QString &reason, bool hideVideo);
    void waitForHeadsetDetection();
    int surveyFileInit();
    SurveyController *controller() const;
    // The ostra mode's own flow, when that is the controller registered for it.
    CorvaneController *corvane() const;
    // The WinCan mode's own flow while WinCan is the current mode.
    WinCanController *winCan() const;
    bool isProjectMode() const { return m_type == kSurveyType_CORVANE || m_type == kSurveyType_WINCAN; }
    // The steps the Corvane and WinCan flows take over. askEndQuestions is true
    // when the mode ends the recording itself, after its questions.
    void askStartQuestions();
    bool askEndQuestions();
    void askModeController(const char *step);
    void showNote(const QString &text);
    void takeSiteImage();

    bool delayflag = false;
    bool m_headsetDetectFinished = true;
    bool audiorecordstatus = false;
    bool m_handlingRecord = false;
    IVideoScreen *m_video = nullptr;
    SurveyType m_type = kSurveyType_BASIC;
    SurveyStatus m_state = Idle;
    QString m_debug = QStringLiteral("???");
    QString sitePath;
    QString currentProject;
    QTimer *checkProjectSizeTimer = nullptr;
    SurveyController *m_controllers[4] = {};
};
