#pragma once

#include "widgets/pipescreen.h"
#include "storage/ireportscreen.h"

#include <QPointer>

class Controller;
class DeviceScreen;
class SiteScreen;
class SurveyScreen;
class ReportScreen;
class ReportPage;
class ReportManager;
class QLabel;
class QStackedWidget;
class QTimer;
class hbiLabel;

// The media browser: devices, their sites, a site's surveys and the files of
// one section, a page each. ReportManager decides what the pages show; this
// screen asks the operator before copies and deletes.
class Report : public PipeScreen, public IReportScreen
{
    Q_OBJECT
public:
    static constexpr int kBlinkMs = 500;

    explicit Report(QWidget *parent = nullptr);

    void setController(Controller *controller);

    void setLevel(int level, int row) override;
    int level() override;
    void setReportManager(ReportManager *manager) override;
    void setPath(QString device, QString path) override;
    void setReportList(QStringList &list) override;
    void setVideo(const QString &path) override;
    void setSnapshots(const QStringList &paths) override;

    void initialise() override;
    ReportPage *page(int level) const;
    ReportScreen *sectionPage() const { return m_section; }
    ReportManager *manager() const;
    QString keyHint() const;

public slots:
    void handleCopy(const QString &path);
    void handleDelete(const QString &path);
    void runCopy(const QString &source, const QString &destination);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void inform(const QString &text);
    void showLevelHint();

    QPointer<Controller> m_control;
    QPointer<ReportManager> m_manager;
    QLabel *m_logo = nullptr;
    hbiLabel *m_blink = nullptr;
    hbiLabel *m_hint = nullptr;
    QStackedWidget *m_pages = nullptr;
    DeviceScreen *m_devices = nullptr;
    SiteScreen *m_sites = nullptr;
    SurveyScreen *m_surveys = nullptr;
    ReportScreen *m_section = nullptr;
    QTimer *m_blinkTimer = nullptr;
    QStringList m_list;
};
