#pragma once

#include <QObject>
#include <QString>

class IVideoScreen;
class SurveyData;

// Knows whether a survey runs and of which kind; every key that concerns the
// survey reaches it through handleAction.
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

    // The first call sets the screen; later calls pass nullptr and get the same object.
    static SurveyManager *instance(IVideoScreen *video = nullptr, QObject *parent = nullptr);

    void handleAction(ActionType action, int value);
    void handlestreamRecord(QString ip, QString port);
    void handlestreamStop();
    void openOstraMenu();
    void handleText(QChar key);
    // One line of the current section's observation file; nothing while no
    // survey is Ready or Recording.
    void appendObservation(quint64 position, float counter, QString type, QString text);
    SurveyData *getSurveyData();
    bool isRecording() const { return m_state == Recording; }
    // The screen has closed the recording.
    void reset();
    // The project directory of the current mode, with a trailing "/"; empty
    // in a basic survey.
    QString getDirectory();
    void setType(SurveyType type) { m_type = type; }
    SurveyType type() const { return m_type; }
    void setStatus(SurveyStatus status) { m_state = status; }
    SurveyStatus status() const { return m_state; }

public slots:
    void takeSnapshot(bool comment);
    void takeSnapshot();

signals:
    void updateCounter();

private:
    SurveyManager(IVideoScreen *video, QObject *parent);

    IVideoScreen *m_video = nullptr;
    SurveyType m_type = kSurveyType_BASIC;
    SurveyStatus m_state = Idle;
};
