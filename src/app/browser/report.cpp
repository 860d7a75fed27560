#include "app/browser/report.h"

#include "app/browser/copydialog.h"
#include "app/browser/copysurvey.h"
#include "app/browser/deletedialog.h"
#include "app/browser/devicescreen.h"
#include "app/browser/reportscreen.h"
#include "app/browser/sitescreen.h"
#include "app/browser/surveyscreen.h"
#include "app/controller.h"
#include "storage/lister.h"
#include "storage/reportmanager.h"
#include "widgets/hbilabel.h"
#include "widgets/hbimessagebox.h"

#include <QDebug>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace {
const QString kLogo = QStringLiteral(":/graphics/logo_corvane_small.png");
} // namespace

Report::Report(QWidget *parent) : PipeScreen(parent)
{
    m_logo = new QLabel(this);
    m_logo->setFixedSize(160, 48);
    auto *title = new hbiLabel(tr("Media Browser"), this, hbiLabel::kTitle);
    m_blink = new hbiLabel(tr("Reading..."), this, hbiLabel::kWarning);
    m_blink->hide();
    auto *top = new QHBoxLayout;
    top->addWidget(m_logo);
    top->addWidget(title, 1);
    top->addWidget(m_blink);

    m_pages = new QStackedWidget(this);
    m_devices = new DeviceScreen(m_pages);
    m_sites = new SiteScreen(m_pages);
    m_surveys = new SurveyScreen(m_pages);
    m_section = new ReportScreen(m_pages);
    for (ReportPage *level : {static_cast<ReportPage *>(m_devices), static_cast<ReportPage *>(m_sites),
                              static_cast<ReportPage *>(m_surveys), static_cast<ReportPage *>(m_section)})
        m_pages->addWidget(level);
    for (FolderPage *folders : {static_cast<FolderPage *>(m_sites), static_cast<FolderPage *>(m_surveys)}) {
        connect(folders, &FolderPage::copy, this, &Report::handleCopy);
        connect(folders, &FolderPage::remove, this, &Report::handleDelete);
    }
    m_hint = new hbiLabel(QString(), this, hbiLabel::kHint);
    m_hint->setAlignment(Qt::AlignCenter);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 8);
    layout->addLayout(top);
    layout->addWidget(m_pages, 1);
    layout->addWidget(m_hint);
    setFocusProxy(m_pages);

    // The marker blinks while a level is still being read from its device.
    m_blinkTimer = new QTimer(this);
    m_blinkTimer->setInterval(kBlinkMs);
    connect(m_blinkTimer, &QTimer::timeout, this, [this]() {
        const bool reading = m_list == QStringList{ReportManager::kRefreshing};
        m_blink->setVisible(reading && !m_blink->isVisible());
    });
    showLevelHint();
}

void Report::setController(Controller *controller)
{
    m_control = controller;
    for (int level = 0; level < m_pages->count(); ++level)
        page(level)->setControl(controller);
}

ReportPage *Report::page(int level) const
{
    return qobject_cast<ReportPage *>(m_pages->widget(level));
}

ReportManager *Report::manager() const
{
    return m_manager;
}

QString Report::keyHint() const
{
    return m_hint->text();
}

void Report::showLevelHint()
{
    m_hint->setText(page(m_pages->currentIndex())->keyHint());
}

void Report::setLevel(int level, int row)
{
    Q_UNUSED(row)
    m_pages->setCurrentIndex(level);
    page(level)->setFocus(Qt::OtherFocusReason);
    showLevelHint();
}

int Report::level()
{
    return m_pages->currentIndex();
}

void Report::setReportManager(ReportManager *manager)
{
    m_manager = manager;
    connect(manager, &ReportManager::copySurvey, this, &Report::runCopy,
            Qt::ConnectionType(Qt::UniqueConnection | Qt::DirectConnection));
}

void Report::setPath(QString device, QString path)
{
    if (path == Lister::kNoPath) {
        qInfo() << "Nothing behind the chosen row of" << device;
        return;
    }
    page(m_pages->currentIndex())->setPath(device, path);
}

void Report::setReportList(QStringList &list)
{
    m_list = list;
    page(m_pages->currentIndex())->setList(list);
}

void Report::setVideo(const QString &path)
{
    m_section->setVideo(path);
}

void Report::setSnapshots(const QStringList &paths)
{
    m_section->setSnapshots(paths);
}

void Report::initialise()
{
    page(m_pages->currentIndex())->setFocus(Qt::OtherFocusReason);
}

void Report::showEvent(QShowEvent *event)
{
    PipeScreen::showEvent(event);
    const QPixmap logo(kLogo);
    if (!logo.isNull())
        m_logo->setPixmap(logo.scaled(m_logo->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    m_blinkTimer->start();
}

void Report::hideEvent(QHideEvent *event)
{
    m_blinkTimer->stop();
    PipeScreen::hideEvent(event);
}

void Report::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && m_control && !event->isAutoRepeat()) {
        m_control->popScreen();
        return;
    }
    PipeScreen::keyReleaseEvent(event);
}

void Report::inform(const QString &text)
{
    HBIMessageBox box(QMessageBox::Information, text, QMessageBox::NoButton, this);
    box.setWindowTitle(tr("Information"));
    box.addInstructionButton(tr("Press Return to continue"));
    box.exec();
}

void Report::handleCopy(const QString &path)
{
    const int at = level();
    if (!m_manager || (at != 1 && at != 2))
        return;
    const QFileInfo chosen(path);
    const QString site = at == 1 ? chosen.fileName() : QFileInfo(chosen.path()).fileName();
    const QString survey = at == 1 ? tr("All") : chosen.fileName();
    const QString relative = at == 1 ? site : site + QLatin1Char('/') + survey;

    QStringList devices = m_devices->list();
    if (devices.size() < 2) {
        inform(tr("No drive available for copy.\nPlease insert a suitable device"));
        return;
    }
    devices.removeAll(m_manager->currentDevice());
    CopyDialog dialog(this);
    dialog.setSiteName(site);
    dialog.setSurveyName(survey);
    dialog.setDeviceList(devices);
    if (dialog.exec() != QDialog::Accepted)
        return;
    switch (m_manager->copyDir(path, dialog.selectedDevice(), relative)) {
    case ReportManager::kCopyNoSpace:
        inform(tr("Insufficient space on device for copy"));
        break;
    case ReportManager::kCopyTooLarge:
        inform(tr("Directory too large to be copied (Limit is 4GB)"));
        break;
    default:
        break;
    }
}

void Report::runCopy(const QString &source, const QString &destination)
{
    CopySurvey copy(source, destination, this);
    Q_UNUSED(copy)
}

void Report::handleDelete(const QString &path)
{
    const int at = level();
    if (!m_manager || (at != 1 && at != 2))
        return;
    const QFileInfo chosen(path);
    const QString site = at == 1 ? chosen.fileName() : QFileInfo(chosen.path()).fileName();
    const QString survey = at == 1 ? tr("All") : chosen.fileName();
    DeleteDialog dialog(this, site, survey);
    if (dialog.exec() == QDialog::Accepted && !ReportManager::removeDir(path))
        qWarning() << "Delete of" << path << "stopped part way";
    // The level is read again from the device, whatever happened.
    const int index = m_manager->index();
    m_manager->hierarchyUp();
    m_manager->hierarchyDown(index);
}
