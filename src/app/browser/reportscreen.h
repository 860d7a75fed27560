#pragma once

#include "app/browser/reportpage.h"

#include <QPointer>

class Player;
class PlaybackIndicator;
class QLabel;

// The files of one survey section, with the recording playing beside the list
// and the snapshots shown in its place. OK opens the row at full screen.
class ReportScreen : public ReportPage
{
    Q_OBJECT
public:
    explicit ReportScreen(QWidget *parent = nullptr);
    ~ReportScreen() override;

    void setPath(const QString &device, const QString &path) override;
    QString keyHint() const override;
    void setVideo(const QString &path);
    void setSnapshots(const QStringList &paths);

    Player *player() const { return m_player; }
    PlaybackIndicator *indicator() const { return m_indicator; }
    QString shownSnapshot() const { return m_snapshot; }
    // The full-screen window opened by OK, while it is open.
    QWidget *openWindow() const { return m_window; }

public slots:
    void playVideo();
    void pauseVideo();
    void stopVideo();

signals:
    void rowSelected(int row);

protected:
    bool handleKey(int key) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void rowChanged(int row);
    void openRow(int row);
    void showSnapshot(const QString &path);
    QString rowPath(int row) const;
    static QString suffixOf(const QString &name);

    Player *m_player = nullptr;
    PlaybackIndicator *m_indicator = nullptr;
    QLabel *m_picture = nullptr;
    QString m_video;
    QString m_snapshot;
    QString m_rowPath;
    QStringList m_snapshots;
    QPointer<QWidget> m_window;
};
