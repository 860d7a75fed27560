#include "settings/settingscloud.h"

#include "storage/networkstorage.h"
#include "widgets/hbimessagebox.h"
#include "widgets/p_combobox.h"
#include "widgets/p_lineedit.h"
#include "widgets/p_pushbutton.h"

#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMovie>
#include <QVBoxLayout>

SettingsCloud::SettingsCloud(QWidget *parent) : QWidget(parent)
{
    m_cloud = NetworkStorage::instance();
    m_service = new P_ComboBox(this);
    m_service->addItems({tr("FTP Site"), tr("WinCan Web")});
    m_host = new P_LineEdit(this);
    m_username = new P_LineEdit(this);
    m_password = new P_LineEdit(this);
    m_password->setEchoMode(QLineEdit::Password);
    m_test = new P_PushButton(tr("Test Connection"), this);
    m_test->setStyleSheet(QStringLiteral(
        "QPushButton:focus { border-style:outset; border-width: 2px; border-color:rgb(0, 170, 255); }"));
    loading = new QMovie(QStringLiteral(":/graphics/Loading.gif"), QByteArray(), this);
    m_loadingLabel = new QLabel(this);
    m_loadingLabel->setMovie(loading);
    m_loadingLabel->setAlignment(Qt::AlignCenter);
    m_loadingLabel->hide();

    auto *form = new QFormLayout;
    form->addRow(tr("Service"), m_service);
    form->addRow(tr("Host"), m_host);
    form->addRow(tr("Username"), m_username);
    form->addRow(tr("Password"), m_password);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_test);
    layout->addWidget(m_loadingLabel);
    layout->addStretch();
    setTabOrder(m_service, m_host);
    setTabOrder(m_host, m_username);
    setTabOrder(m_username, m_password);
    setTabOrder(m_password, m_test);

    connect(m_service, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this](int row) { setWinCanWeb(row == 1); });
    connect(m_test, &QPushButton::released, this, &SettingsCloud::testConnection);
    connect(this, &SettingsCloud::scan, m_cloud, &NetworkStorage::networkScan);
    connect(m_cloud, &NetworkStorage::update, this, &SettingsCloud::updateFields);
    connect(m_cloud, &NetworkStorage::success, this, &SettingsCloud::connectionSuccess);
    connect(m_cloud, &NetworkStorage::failure, this, &SettingsCloud::connectionFailure);
    readSettings();
}

QString SettingsCloud::host() const { return m_host->text(); }
QString SettingsCloud::username() const { return m_username->text(); }
QString SettingsCloud::password() const { return m_password->text(); }
bool SettingsCloud::isTesting() const { return loading->state() == QMovie::Running; }

void SettingsCloud::showEvent(QShowEvent *event)
{
    readSettings();
    QWidget::showEvent(event);
}

void SettingsCloud::readSettings()
{
    wincanweb = m_cloud->isWinCanWeb();
    showService();
    // The stored values come back through the update signal.
    m_cloud->readSettings();
}

// Switching takes effect at once, as the other settings do: the other service's
// item leaves the media browser until a test or a scan mounts this one.
void SettingsCloud::setWinCanWeb(bool on)
{
    if (isTesting() || on == wincanweb) {
        showService();
        return;
    }
    wincanweb = on;
    m_cloud->setWinCanWeb(on);
    showService();
    if (!on)
        m_cloud->readSettings();
}

void SettingsCloud::showService()
{
    const QSignalBlocker quiet(m_service);
    m_service->setCurrentIndex(wincanweb ? 1 : 0);
    // WinCan Web's address is fixed: shown, not typed.
    m_host->setReadOnly(wincanweb);
    if (wincanweb)
        m_host->setText(m_cloud->winCanWebHost());
}

void SettingsCloud::updateFields(QString host, QString user, QString password)
{
    // A scan under way keeps what the operator typed.
    if (isTesting())
        return;
    m_host->setText(wincanweb ? m_cloud->winCanWebHost() : host);
    m_username->setText(user);
    m_password->setText(password);
}

void SettingsCloud::testConnection()
{
    if (isTesting())
        return;
    if (host().trimmed().isEmpty() || username().trimmed().isEmpty() || password().isEmpty()) {
        tell(true, tr("Invalid Information"), tr("One or more text fields are blank. \nPlease try again."));
        return;
    }
    // The site is a host name with an optional port; a typed "ftp://" is dropped.
    QString site = host().trimmed();
    const int scheme = site.indexOf(QStringLiteral("://"));
    if (scheme >= 0)
        site = site.mid(scheme + 3);
    m_loadingLabel->show();
    loading->start();
    emit scan(site, username().trimmed(), password());
}

void SettingsCloud::connectionSuccess()
{
    if (!isTesting())
        return;
    loading->stop();
    m_loadingLabel->hide();
    tell(false, tr("Cloud Connection Success"), tr("Successfully connected to the Cloud."));
}

void SettingsCloud::connectionFailure()
{
    if (!isTesting())
        return;
    loading->stop();
    m_loadingLabel->hide();
    tell(true, tr("Cloud Connection Failed"),
         tr("Could not connect to the Cloud. \nMake sure you have entered the correct details."));
}

// The box is frameless and shows no window title: the title goes into its text.
void SettingsCloud::tell(bool warning, const QString &title, const QString &text)
{
    HBIMessageBox box(warning ? QMessageBox::Warning : QMessageBox::Information,
                      QStringLiteral("<strong>%1</strong>").arg(title.toHtmlEscaped()), QMessageBox::Ok, this);
    box.setWindowTitle(title);
    box.setInformativeText(text);
    box.setDefaultButton(QMessageBox::Ok);
    box.exec();
}

void SettingsCloud::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Down:
        focusNextChild();
        return;
    case Qt::Key_Up:
        focusPreviousChild();
        return;
    default:
        // What the page does not take goes up to the settings screen.
        QWidget::keyPressEvent(event);
    }
}
