#include "widgets/indicators.h"

#include "widgets/audioindicator.h"
#include "widgets/batteryindicator.h"
#include "widgets/consolestyle.h"
#include "widgets/indicatorcell.h"
#include "widgets/wifiindicator.h"

#include <QDateTime>
#include <QTimer>
#include <QVBoxLayout>

namespace {

// Below this many minutes of recording space the time left is shown as an alarm.
constexpr int kLowDiskMinutes = 6;

QString minutesText(int minutes)
{
    if (minutes < 60)
        return QStringLiteral("%1m").arg(minutes);
    return QStringLiteral("%1h%2").arg(minutes / 60).arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

Indicators::Indicators(QWidget *parent)
    : QWidget(parent)
{
    setAutoFillBackground(true);
    QPalette strip = palette();
    strip.setColor(QPalette::Window, ConsoleStyle::stripGround());
    setPalette(strip);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);

    m_clock = new IndicatorCell(this, 58);
    m_battery = new BatteryIndicator(this);
    m_lamp = new IndicatorCell(this, 64);
    m_storage = new IndicatorCell(this, 64);
    m_camera = new IndicatorCell(this, 66);
    m_modeCell = new IndicatorCell(this, 64);
    m_wifi = new WifiIndicator(this);
    m_headset = new audioindicator(this);
    m_snapshot = new IndicatorCell(this, 50);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    for (QWidget *cell : {static_cast<QWidget *>(m_clock), static_cast<QWidget *>(m_battery), static_cast<QWidget *>(m_lamp),
                          static_cast<QWidget *>(m_storage), static_cast<QWidget *>(m_camera), static_cast<QWidget *>(m_modeCell),
                          static_cast<QWidget *>(m_wifi), static_cast<QWidget *>(m_headset), static_cast<QWidget *>(m_snapshot)})
        layout->addWidget(cell);
    layout->addStretch(1);

    m_lamp->setPicture(QStringLiteral(":/graphics/lamp.png"));
    m_clockTimer = new QTimer(this);
    m_clockTimer->setInterval(1000);
    connect(m_clockTimer, &QTimer::timeout, this, &Indicators::showCurrentTime);

    setBatteryLevel(0);
    displayLampBrightness(0);
    selectStorage(QString());
    setCameraState(Missing);
    showTime(QDateTime::currentDateTime());
}

IndicatorCell *Indicators::cell(Cell which) const
{
    switch (which) {
    case kClockCell:
        return m_clock;
    case kLampCell:
        return m_lamp;
    case kStorageCell:
        return m_storage;
    case kCameraCell:
        return m_camera;
    case kModeCell:
        return m_modeCell;
    case kSnapshotCell:
        return m_snapshot;
    }
    return nullptr;
}

QString Indicators::modeName(Mode mode)
{
    if (mode >= kPage1 && mode <= kPage9)
        return tr("PAGE %1").arg(mode - kPage1 + 1);
    switch (mode) {
    case kModeCounter:
        return tr("COUNT");
    case kBrightness:
        return tr("BRIGHT");
    case kContrast:
        return tr("CONTR");
    case kHue:
        return tr("HUE");
    case kSaturation:
        return tr("SATUR");
    case kModeDate:
        return tr("DATE");
    case kModeTime:
        return tr("TIME");
    case kModeGraphic:
        return tr("GRAPH");
    case kModeText:
        return tr("TEXT");
    default:
        return QString();
    }
}

void Indicators::setBatteryLevel(int level)
{
    m_battery->setLevel(level);
}

void Indicators::setChargingState(int state)
{
    m_battery->setChargingState(state);
}

void Indicators::setBatteryTimeRemaining(int value)
{
    m_battery->setTimeRemaining(value);
}

void Indicators::setDiskRecordTimeRemaining(int minutes)
{
    m_diskMinutes = minutes;
    showStorage();
}

void Indicators::displayLampBrightness(int percent)
{
    m_lamp->setCaption(percent <= 0 ? tr("OFF") : tr("%1%").arg(qMin(percent, 100)));
}

void Indicators::selectStorage(const QString &name)
{
    m_saveTo = name;
    showStorage();
}

void Indicators::showStorage()
{
    m_storage->setHeadline(m_saveTo.isEmpty() ? tr("NONE") : m_saveTo);
    if (m_saveTo.isEmpty()) {
        m_storage->setCaption(tr("NO SAVE"));
        m_storage->setAlert(true);
        return;
    }
    m_storage->setCaption(m_diskMinutes >= 0 ? minutesText(m_diskMinutes) : QString());
    m_storage->setAlert(m_diskMinutes >= 0 && m_diskMinutes < kLowDiskMinutes);
}

void Indicators::setCameraState(Indicators::CameraIndicatorState state)
{
    m_cameraState = state;
    showCameraState();
}

void Indicators::showCameraState()
{
    struct Look {
        const char *picture;
        QString caption;
        bool alert;
    };
    static const QString path = QStringLiteral(":/graphics/");
    Look look{"camera-missing.png", tr("NO CAM"), true};
    switch (m_cameraState) {
    case Missing:
        break;
    case Stop:
        look = {"square-green-32.png", tr("READY"), false};
        break;
    case Recording:
        look = {"ball-red-32.png", tr("REC"), true};
        break;
    case Paused:
        look = {"paused-record.png", tr("PAUSE"), false};
        break;
    case Saving:
        look = {"ball-orange-32.png", tr("SAVING"), false};
        break;
    }
    m_camera->setPicture(path + QLatin1String(look.picture));
    m_camera->setCaption(look.caption);
    m_camera->setAlert(look.alert);
}

void Indicators::restartVideo(bool restarting)
{
    if (!restarting) {
        showCameraState();
        return;
    }
    m_camera->setCaption(tr("RESTART"));
    m_camera->setAlert(false);
}

void Indicators::setMode(Indicators::Mode mode)
{
    m_mode = mode;
    m_modeCell->setHeadline(modeName(mode));
    m_modeCell->setCaption(QString());
}

void Indicators::setModeInt(Indicators::Mode mode, int value)
{
    setMode(mode);
    m_modeCell->setCaption(QString::number(value));
}

void Indicators::setSnapshotIcon(int shown)
{
    m_snapshot->setPicture(shown ? QStringLiteral(":/graphics/snapshot.png") : QString());
}

void Indicators::setOstraWifiLogo(int state)
{
    m_wifi->updateOstraIcon(state);
}

void Indicators::updateWifiIcon(int state)
{
    m_wifi->updateWifiIcon(state);
}

void Indicators::setAudioState(int state)
{
    m_headset->setAudioState(state);
}

void Indicators::setClockMode(int mode)
{
    m_clockMode = mode;
    showCurrentTime();
}

void Indicators::showTime(const QDateTime &now)
{
    const bool twelveHours = m_clockMode != 0;
    m_clock->setHeadline(now.time().toString(twelveHours ? QStringLiteral("h:mm") : QStringLiteral("hh:mm")));
    m_clock->setCaption(twelveHours ? now.time().toString(QStringLiteral("AP")) : now.date().toString(QStringLiteral("dd/MM")));
}

void Indicators::showCurrentTime()
{
    showTime(QDateTime::currentDateTime());
}

void Indicators::showEvent(QShowEvent *event)
{
    showCurrentTime();
    m_clockTimer->start();
    QWidget::showEvent(event);
}

void Indicators::hideEvent(QHideEvent *event)
{
    m_clockTimer->stop();
    QWidget::hideEvent(event);
}
