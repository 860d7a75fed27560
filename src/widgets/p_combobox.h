#pragma once

#include <QComboBox>

// A choice on a form, bound to a survey-data key by its tag.
//
// Closed, it leaves Up, Down, Page Up and Page Down to the form (they move between
// fields and pages) and steps through its values with Left and Right, so no list
// need be opened with gloves on. While its list is open the list takes every key,
// so the form's own keys come out as signals: the mode keys, Escape and the page
// keys close the list (the mode and page keys keep the highlighted row) and are
// reported once, on their release.
//
// A row too long for the closed box goes on a second line rather than being
// cut: the box grows to two or three lines where its column is too narrow for its rows.
class P_ComboBox : public QComboBox
{
    Q_OBJECT
public:
    explicit P_ComboBox(QWidget *parent = nullptr);

    void setTag(const QString &tag);
    QString tag() const;

    void showPopup() override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    // How many lines the widest row needs in a box this wide.
    int linesFor(int width) const;
    // The room the closed box gives its text at this width.
    QRect textRoom(int width) const;

signals:
    void corvaneKeyRelease();
    void wincanKeyRelease();
    void escKeyRelease();
    void pageUpRelease();
    void pageDownRelease();
    void send(QString tag, QString text);

public slots:
    void sendValue();

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    static bool isFormKey(int key);
    void closeListFor(int key);
    bool finishFormKey(int key);

    int m_pendingFormKey = 0;
};
