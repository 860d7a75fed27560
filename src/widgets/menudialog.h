#pragma once

#include "widgets/keypaddialog.h"

#include <QStringList>

class QListWidget;

// A list of rows to choose from. Up and Down move the selection (wrapping round),
// Page Up and Page Down jump a screenful, Return or Enter answers the selected
// row's index, Escape answers 0: the first row of a menu is its way back.
class menuDialog : public KeypadDialog
{
    Q_OBJECT
public:
    // The answer goes to receiver's slot, written SLOT(name(int)).
    menuDialog(QWidget *parent, QObject *receiver, const char *slot, const QString &title,
               const QStringList &rows);

    int currentRow() const;
    void setCurrentRow(int row);
    QStringList rows() const { return m_rows; }

signals:
    void selected(int row);

public slots:
    // Answers 0 and closes, as the Escape key does.
    void escape();

protected:
    void actOnKey(int key) override;
    void answerClosed() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void answer(int row);
    void moveSelection(int step, bool wrap);
    int rowsPerPage() const;

    QListWidget *m_list = nullptr;
    QStringList m_rows;
};
