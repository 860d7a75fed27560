#pragma once

#include <QStringList>
#include <QWidget>

class Controller;
class QListWidget;
class QVBoxLayout;
class hbiLabel;

// One level of the media browser: a heading with where the operator is, the
// rows, and the keys of the level. The row list keeps the focus; the level's
// keys are taken from it and act on their release, and only when this page also
// saw the press, so the key that brought the operator here does nothing more.
class ReportPage : public QWidget
{
    Q_OBJECT
public:
    explicit ReportPage(QWidget *parent = nullptr);

    void setControl(Controller *control) { m_control = control; }
    // Keeps the selected row where it can; a shorter list falls back to its last row.
    void setList(const QStringList &list);
    virtual void setPath(const QString &device, const QString &path) = 0;
    virtual QString keyHint() const = 0;

    QStringList list() const { return m_cache; }
    int currentRow() const;
    void setCurrentRow(int row);
    QString currentText() const;
    QString heading() const;
    QString path() const { return m_current_path; }
    QListWidget *listWidget() const { return m_list; }

signals:
    void currentRowChanged(int row);

protected:
    // A whole press and release of one of this level's keys; false passes it on.
    virtual bool handleKey(int key) = 0;
    virtual bool isPageKey(int key) const;
    void setHeading(const QString &text);
    Controller *control() const { return m_control; }
    QVBoxLayout *contentLayout() const;

    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

    QString m_current_path;

private:
    Controller *m_control = nullptr;
    QListWidget *m_list = nullptr;
    hbiLabel *m_heading = nullptr;
    QStringList m_cache;
    int m_pressedKey = 0;
};
