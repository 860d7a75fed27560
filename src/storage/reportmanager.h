#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class IReportScreen;
class Lister;

// The model of the media browser: four levels (device, site, survey, the files
// of one section), one lister each, shown through the report screen. It also
// owns the rules of copying and deleting what the operator picks.
class ReportManager : public QObject
{
    Q_OBJECT
public:
    static constexpr int kLevelCount = 4;
    // Kilobytes; the largest directory a copy may take.
    static constexpr qint64 kCopyLimitKB = 4194304;
    enum CopyResult { kCopyStarted = 0, kCopyNoSpace = -1, kCopyTooLarge = -2 };
    // Waited for each of the size scripts.
    static constexpr int kScriptTimeoutMs = 30000;
    // The one row shown while a level is still being read.
    static const QString kRefreshing;

    ReportManager(IReportScreen *screen, QObject *parent = nullptr);
    ~ReportManager() override;

    void triggerUpdate();
    void hierarchyUp();
    void hierarchyDown(int row);
    QString currentDevice() const { return m_current_device; }
    QStringList devices() const;
    int index() const { return m_index; }
    int level() const { return m_level; }
    Lister *lister(int level) const;

    // Checks size and space, then has the copy carried out; one of CopyResult.
    int copyDir(const QString &source, const QString &device, const QString &relative);
    // Removes the directory and all it holds, hidden files too. True when it is gone.
    static bool removeDir(const QString &path);
    void cancelcopy();

    // The kilobytes a script printed for a path, or -1 when it printed no number.
    static qint64 kilobytesFrom(const QString &script, const QString &path);

signals:
    // A copy that passed the checks: source directory to its final place.
    void copySurvey(const QString &source, const QString &destination);

public slots:
    void update();

private:
    void setLevel(int level, int row);
    void showDevices();
    bool showFolder(int level, int row);
    void setLister(int level, Lister *lister);
    void showSectionMedia();
    bool isExportRow(int row) const;

    int m_index = 0;
    IReportScreen *m_report_ui = nullptr;
    Lister *m_lister[kLevelCount] = {};
    QString m_current_device = QStringLiteral("?");
    int m_level = -1;
    bool m_media_shown = false;
};
