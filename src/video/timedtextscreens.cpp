#include "video/timedtextscreens.h"

#include "core/consolesettings.h"
#include "video/overlay.h"

#include <QTimer>

TimedTextScreens::TimedTextScreens(overlay *target, QObject *parent)
    : QObject(parent)
    , m_overlay(target)
    , m_timer(new QTimer(this))
{
    m_timer->setSingleShot(true);
    connect(m_timer, &QTimer::timeout, this, &TimedTextScreens::clearHeader);
}

int TimedTextScreens::colour(bool winCan)
{
    if (!winCan)
        return 0;
    return ConsoleSettings().value(QStringLiteral("WinCan/Text_Colour"), 0).toInt();
}

int TimedTextScreens::seconds(bool winCan, const QVariant &headerDefault)
{
    ConsoleSettings settings;
    if (winCan)
        return settings.value(QStringLiteral("WinCan/Text_Timeout"), 5).toInt();
    return settings.value(QStringLiteral("Timings/Header"), headerDefault).toInt();
}

void TimedTextScreens::showSurveyDetails(const QList<TextScreen::Field> &fields, bool winCan)
{
    m_timer->stop();
    m_picture = TextScreen::surveyDetails(fields, colour(winCan));
    m_overlay->addHeaders(m_picture);
    m_timer->start(seconds(winCan, 1) * 1000);
}

void TimedTextScreens::showEndHeader(bool winCan)
{
    ConsoleSettings settings;
    QStringList lines;
    for (int n = 1; n <= 4; ++n)
        lines << settings.value(QStringLiteral("End_Header/Line%1").arg(n)).toString();
    m_picture = TextScreen::endHeader(lines, colour(winCan));
    // The end screen stays until the stop takes it away; no timer here.
    m_overlay->addHeaders(m_picture);
    m_overlay->captureOverlay();
}

void TimedTextScreens::showWinCanCode(const QString &code, const QString &sentence)
{
    m_timer->stop();
    ConsoleSettings settings;
    settings.setValue(QStringLiteral("WinCan/Code"), code);
    settings.setValue(QStringLiteral("WinCan/Sentence"), sentence);
    m_picture = TextScreen::winCanCode(code, sentence, colour(true));
    const int duration = seconds(true, 5);
    if (duration > 0) {
        m_overlay->addHeaders(m_picture);
        m_overlay->captureOverlay();
    }
    // Started even for 0 seconds, so a text screen still standing is cleared.
    m_timer->start(qMax(0, duration) * 1000);
}

void TimedTextScreens::clear()
{
    m_timer->stop();
    clearHeader();
}

bool TimedTextScreens::isTimerActive() const
{
    return m_timer->isActive();
}

void TimedTextScreens::clearHeader()
{
    m_overlay->addHeaders(QImage());
}
