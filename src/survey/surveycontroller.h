#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class IVideoScreen;

// The flow of one survey mode: where its sections go, what its files are called
// and what its key does. SurveyManager picks the controller of the current mode.
class SurveyController : public QObject
{
    Q_OBJECT
public:
    // Results of prepareDirectory(); the manager treats every non-zero one alike.
    enum PrepareResult { kPrepared = 0, kDirectoryFailed = 1, kNoStorage = 2 };

    explicit SurveyController(QObject *parent = nullptr);

    // Makes the directory of the next section and its files.
    virtual int prepareDirectory() = 0;
    // Writes the first line of the observation file; 0 on success.
    virtual int surveyfileInit();
    virtual QString mpg4Path();
    // Hands out the next snapshot name: each call uses up a number.
    virtual QString snapshotPath();
    virtual QString observationfilePath() const;
    // What the mode's own key does.
    virtual void button_push() = 0;

    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    void setVideoScreen(IVideoScreen *video) { m_video = video; }
    IVideoScreen *videoScreen() const { return m_video; }
    QString prjDirectory() const { return m_prj_directory; }
    QString directory() const { return m_directory; }
    // A project mode records only into an open section; the manager asks before
    // every recording and closes the section when the recording ends.
    virtual bool sectionOpen() const { return m_sectionOpen; }
    virtual void setSectionOpen(bool open) { m_sectionOpen = open; }

signals:
    void started();
    void enabled(bool enabled);
    void exit();
    void newProject();
    void openProject();
    void newSection();

protected slots:
    void handleExit();
    // Whatever the answer, the menu's way out leaves the mode.
    void menuCancel(int answer);
    void handleWasEnabled(bool enabled);

protected:
    // The extension of the mode's data files (".bdb", ".sdb", ".wdb").
    virtual QString dbExt() const = 0;

    // The mode's menus and notes on the video screen, answering to this object.
    void showMenu(const QString &title, const QStringList &rows, const char *slot);
    void showNote(const QString &text, const char *slot = nullptr);
    // The project folders ending in suffix on the device, the one worked on last first.
    static QStringList projectFolders(const QString &devicePath, const QString &suffix);

    bool m_enabled = false;
    bool m_EditSection = false;
    IVideoScreen *m_video = nullptr;
    QString m_directory = QStringLiteral("not-set");
    // With a trailing "/"; empty in a basic survey, which has no project.
    QString m_prj_directory;
    int m_snapshotCount = 0;
    bool m_sectionOpen = false;
};
