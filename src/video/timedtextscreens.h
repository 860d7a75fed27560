#pragma once

#include "video/textscreen.h"

#include <QImage>
#include <QObject>

class QTimer;
class overlay;

// Puts the full-picture text screens on the overlay, and takes the timed ones
// away again: the survey details for the seconds the settings give, the WinCan
// code likewise, the end header until the recording stops.
class TimedTextScreens : public QObject
{
    Q_OBJECT
public:
    TimedTextScreens(overlay *target, QObject *parent = nullptr);

    void showSurveyDetails(const QList<TextScreen::Field> &fields, bool winCan);
    void showEndHeader(bool winCan);
    void showWinCanCode(const QString &code, const QString &sentence);
    // Takes any text screen off, and forgets a timed one still running.
    void clear();
    bool isTimerActive() const;

public slots:
    void clearHeader();

private:
    static int colour(bool winCan);
    static int seconds(bool winCan, const QVariant &headerDefault);

    overlay *m_overlay;
    QTimer *m_timer;
    QImage m_picture;
};
