#include "settings/settingsnetwork.h"

#include "connectivity/wifi.h"
#include "core/consolesettings.h"
#include "widgets/hbimessagebox.h"
#include "widgets/textentrydialog.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMovie>
#include <QVBoxLayout>

namespace {
const char kPasswordKey[] = "WiFi/Password";
// iwconfig's quality scale; dBm is quality - 110.
constexpr int kQualityTotal = 70;
constexpr int kDbmOffset = 110;

QString bars(int quality)
{
    const int state = Wifi::stateFor(QStringLiteral("in range"), QStringLiteral("-"), quality, kQualityTotal);
    return QString(state - 1, QChar(0x25AE)) + QString(4 - state, QChar(0x25AF));
}
} // namespace

settingsnetwork::settingsnetwork(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    auto *top = new QHBoxLayout;
    m_title = new QLabel(this);
    m_spinner = new QLabel(this);
    m_movie = new QMovie(QStringLiteral(":/graphics/Loading.gif"), QByteArray(), this);
    m_spinner->setMovie(m_movie);
    m_spinner->hide();
    top->addWidget(m_title, 1);
    top->addWidget(m_spinner);
    layout->addLayout(top);
    m_status = new QLabel(this);
    layout->addWidget(m_status);
    m_list = new QListWidget(this);
    layout->addWidget(m_list, 1);
    m_hint = new QLabel(this);
    m_hint->setWordWrap(true);
    layout->addWidget(m_hint);
    setFocusProxy(m_list);
    m_list->installEventFilter(this);
    retranslate();
}

Wifi *settingsnetwork::wifi()
{
    // The link is built with the controller, after the screens.
    if (!m_wifi) {
        m_wifi = Wifi::instance();
        connect(m_wifi, &Wifi::updateWifiList, this, &settingsnetwork::updateWifiList);
        connect(m_wifi, &Wifi::connectFailure, this, &settingsnetwork::connectFailure);
        connect(m_wifi, &Wifi::password_calculated, m_wifi, &Wifi::connect, Qt::UniqueConnection);
        connect(m_wifi, &Wifi::updateWifiState, this, &settingsnetwork::followState);
    }
    return m_wifi;
}

void settingsnetwork::retranslate()
{
    m_title->setText(tr("Wi-Fi Networks"));
    m_hint->setText(tr("OK: join the network   R: scan again   D: disconnect   S: %1 password   PgUp/PgDn: tabs")
                        .arg(m_showPassword ? tr("Hide") : tr("Show")));
    showStatus();
}

void settingsnetwork::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

QList<settingsnetwork::Network> settingsnetwork::parseScan(const QString &scan)
{
    QList<Network> networks;
    QString text = scan;
    // A typographic apostrophe in a name comes through as its UTF-8 bytes.
    text.replace(QString::fromUtf8("\xe2\x80\x99"), QStringLiteral("'"));
    text.replace(QStringLiteral("\\xe2\\x80\\x99"), QStringLiteral("'"));
    const QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QStringList fields = line.split(QLatin1Char('\t'));
        if (fields.size() < 5)
            continue;
        bool ok = false;
        const int dbm = fields.at(2).trimmed().toInt(&ok);
        const QString ssid = fields.mid(4).join(QLatin1Char('\t'));
        if (!ok || ssid.isEmpty())
            continue;
        bool seen = false;
        for (const Network &network : qAsConst(networks))
            seen = seen || network.ssid == ssid;
        if (!seen)
            networks.append({ssid, qBound(0, dbm + kDbmOffset, kQualityTotal)});
    }
    return networks;
}

QList<QPair<QString, QString>> settingsnetwork::parseKnown(const QString &list)
{
    QList<QPair<QString, QString>> known;
    const QStringList lines = list.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        if (line.startsWith(QLatin1String("network id / ssid / bssid / flags"))
            || line.startsWith(QLatin1String("done listnetworks")))
            continue;
        const QStringList fields = line.split(QLatin1Char('\t'));
        if (fields.size() >= 2)
            known.append(qMakePair(fields.at(0), fields.at(1)));
    }
    return known;
}

void settingsnetwork::updateWifiList(QString list, QString ssid, bool changed, bool good)
{
    Q_UNUSED(changed)
    m_scanFailed = !good;
    m_joined = ssid == QLatin1String("off") ? QString() : ssid;
    m_networks = good ? parseScan(list) : QList<Network>();
    setConnecting(false);
    fillList();
}

void settingsnetwork::followState()
{
    // The link's own reading names the network joined, even before the next scan.
    if (m_wifi)
        m_joined = m_wifi->state() == Wifi::kNotConnected ? QString() : m_wifi->ssid();
    fillList();
}

void settingsnetwork::fillList()
{
    const QString current = m_list->currentItem() ? m_list->currentItem()->data(Qt::UserRole).toString() : QString();
    m_list->clear();
    for (const Network &network : qAsConst(m_networks)) {
        QString text = bars(network.quality) + QStringLiteral("  ") + network.ssid;
        if (network.ssid == m_joined)
            text += QStringLiteral("  (") + tr("Connected") + QLatin1Char(')');
        auto *item = new QListWidgetItem(text, m_list);
        item->setData(Qt::UserRole, network.ssid);
        if (network.ssid == current)
            m_list->setCurrentItem(item);
    }
    if (!m_list->currentItem() && m_list->count() > 0)
        m_list->setCurrentRow(0);
    showStatus();
}

QStringList settingsnetwork::shownNetworks() const
{
    QStringList names;
    for (int row = 0; row < m_list->count(); ++row)
        names << m_list->item(row)->data(Qt::UserRole).toString();
    return names;
}

void settingsnetwork::showStatus()
{
    QString text;
    if (m_connecting)
        text = tr("Connecting to %1...").arg(m_chosen);
    else if (m_scanFailed)
        text = tr("No Wi-Fi adapter found");
    else if (m_wifi && m_wifi->state() != Wifi::kNotConnected)
        text = tr("Connected to %1 (%2)").arg(m_wifi->ssid(), m_wifi->ip());
    else
        text = tr("Not connected");
    m_status->setText(text);
}

QString settingsnetwork::statusText() const
{
    return m_status->text();
}

bool settingsnetwork::isConnecting() const
{
    return m_connecting;
}

void settingsnetwork::setConnecting(bool connecting)
{
    m_connecting = connecting;
    m_spinner->setVisible(connecting);
    if (connecting)
        m_movie->start();
    else
        m_movie->stop();
    showStatus();
}

void settingsnetwork::joinSelected()
{
    QListWidgetItem *item = m_list->currentItem();
    if (!item || m_connecting || m_passwordDialog)
        return;
    m_chosen = item->data(Qt::UserRole).toString();
    const QString last = ConsoleSettings().value(QLatin1String(kPasswordKey)).toString();
    m_passwordDialog = new TextEntryDialog(this, this, SLOT(passwordEntered(int, QString)), tr("Enter Password:"),
                                           m_chosen, last);
    // Gloved typing on the keypad is easier to check with the letters showing.
    if (auto *edit = m_passwordDialog->findChild<QLineEdit *>())
        edit->setEchoMode(m_showPassword ? QLineEdit::Normal : QLineEdit::Password);
    m_passwordDialog->setModal(true);
    m_passwordDialog->show();
    m_passwordDialog->setFocus();
}

void settingsnetwork::passwordEntered(int key, QString pass)
{
    if (m_passwordDialog)
        m_passwordDialog->deleteLater();
    m_passwordDialog = nullptr;
    m_list->setFocus();
    if (key == TextEntryDialog::kCancelled)
        return;
    ConsoleSettings settings;
    settings.setValue(QLatin1String(kPasswordKey), pass);
    settings.sync();
    setConnecting(true);
    wifi()->password(m_chosen, pass, QString::number(m_list->currentRow()));
}

void settingsnetwork::connectFailure()
{
    const bool wasOurs = m_connecting;
    setConnecting(false);
    if (!wasOurs || !isVisible())
        return;
    HBIMessageBox box(QMessageBox::Warning, tr("Network Error"), QMessageBox::Ok, this);
    box.setInformativeText(tr("Please Try Again"));
    box.exec();
    m_list->setFocus();
}

void settingsnetwork::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    wifi()->startScan();
    showStatus();
}

void settingsnetwork::hideEvent(QHideEvent *event)
{
    if (m_wifi)
        m_wifi->stopScan();
    QWidget::hideEvent(event);
}

bool settingsnetwork::eventFilter(QObject *watched, QEvent *event)
{
    // The list would take letters for its own search and Return for itself.
    if (watched == m_list && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        // Page keys belong to the settings screen: they go from tab to tab.
        if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            QCoreApplication::sendEvent(this, event);
            return true;
        }
        if (key == Qt::Key_R || key == Qt::Key_D || key == Qt::Key_S || key == Qt::Key_Return || key == Qt::Key_Enter) {
            keyPressEvent(static_cast<QKeyEvent *>(event));
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void settingsnetwork::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        joinSelected();
        return;
    case Qt::Key_R:
        wifi()->startScan();
        return;
    case Qt::Key_D:
        wifi()->disconnect();
        return;
    case Qt::Key_S:
        m_showPassword = !m_showPassword;
        retranslate();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}
