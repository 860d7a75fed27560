#pragma once

#include <QWidget>

class QLabel;

// One snapshot at full screen. Escape or Left closes it; it deletes itself.
class SnapshotWindow : public QWidget
{
    Q_OBJECT
public:
    SnapshotWindow(const QString &path, QWidget *parent = nullptr);

    bool hasPicture() const;

protected:
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void showScaled();

    QLabel *m_picture = nullptr;
    QPixmap m_original;
    int m_pressedKey = 0;
};
