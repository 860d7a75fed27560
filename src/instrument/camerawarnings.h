#pragma once

#include <QObject>
#include <QString>

// The operator's side of a camera warning. It only says what it needs: the box is
// shown, and answered, by whoever listens to warningRaised (the survey manager's
// warning box on the unit), which hands the answer back through answerWarning.
// Nothing here waits: an ATEX camera's pass-code conversation goes on as the
// answers, the board's "code sent" and the camera's override state arrive.
class CameraWarnings : public QObject
{
    Q_OBJECT
public:
    explicit CameraWarnings(QObject *parent = nullptr);

    bool isShowing() const { return m_warning != 0; }
    // Shows `warning` (a CameraController::WarningStates) and logs what was shown.
    void show(int warning);
    // What the camera last said of the pass code.
    void overrideReported(const QString &state);
    void passCodeSent();
    // A camera that went away can no longer accept a code: stop asking then.
    void setCameraPresent(bool present);

    static QString warningText(int warning);

public slots:
    // The operator's answer to the box: a button's number, or the pass code typed.
    void answerWarning(const QString &answer);

signals:
    // Asks the operator about a warning; with `atex` the answer is the pass code.
    void warningRaised(const QString &text, bool atex);
    void sendAtexPass(QString code);
    // The camera is to be asked whether it took the code.
    void passStatusWanted();
    void logEvent(int group, int code);
    // The operator is done with the warning; it was `warning`.
    void finished(int warning);

private:
    void ask(bool atex);
    void checkPassCode();
    void finish();
    bool passCodeAccepted() const;

    int m_warning = 0;
    bool m_atex = false;
    bool m_asking = false;
    bool m_cameraPresent = false;
    bool passSent = false;
    QString overideState;
};
