#include "widgets/menudialog.h"

#include <QDebug>
#include <QKeyEvent>
#include <QListWidget>
#include <QVBoxLayout>

namespace {

// Rows that fit between the title and the key line on the 600 pixel screen.
constexpr int kMostVisibleRows = 10;

} // namespace

menuDialog::menuDialog(QWidget *parent, QObject *receiver, const char *slot, const QString &title,
                       const QStringList &rows)
    : KeypadDialog(parent, title)
    , m_rows(rows)
{
    m_list = new QListWidget(this);
    // The dialog keeps the focus and moves the selection itself, so the frame of
    // the selected row is the one thing that shows where the operator is.
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setUniformItemSizes(true);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (const QString &row : rows)
        m_list->addItem(row.trimmed());
    contentLayout()->addWidget(m_list);

    const int rowHeight = rows.isEmpty() ? 0 : m_list->sizeHintForRow(0);
    const int visibleRows = qMin(int(rows.size()), kMostVisibleRows);
    m_list->setFixedHeight(rowHeight * visibleRows + 2 * m_list->frameWidth() + 4);
    m_list->setMinimumWidth(qBound(320, m_list->sizeHintForColumn(0) + 48, 640));

    setKeyHint(tr("Up/Down: choose   OK: select   ESC: back"));
    if (rows.isEmpty())
        qWarning() << "Menu" << title << "has no rows";
    else
        setCurrentRow(0);
    connectAnswer(SIGNAL(selected(int)), receiver, slot);
}

int menuDialog::currentRow() const
{
    return m_list->currentRow();
}

void menuDialog::setCurrentRow(int row)
{
    if (row < 0 || row >= m_list->count())
        return;
    m_list->setCurrentRow(row);
    m_list->scrollToItem(m_list->item(row));
}

void menuDialog::escape()
{
    answer(0);
}

void menuDialog::answer(int row)
{
    if (finish(row == 0 ? Rejected : Accepted))
        emit selected(row);
}

void menuDialog::actOnKey(int key)
{
    if (key == Qt::Key_Escape)
        answer(0);
    else
        answer(qMax(0, currentRow()));
}

void menuDialog::answerClosed()
{
    emit selected(0);
}

int menuDialog::rowsPerPage() const
{
    const int rowHeight = m_list->count() > 0 ? m_list->sizeHintForRow(0) : 0;
    return rowHeight > 0 ? qMax(1, m_list->viewport()->height() / rowHeight) : 1;
}

void menuDialog::moveSelection(int step, bool wrap)
{
    const int count = m_list->count();
    if (count == 0)
        return;
    int row = currentRow() + step;
    if (wrap)
        row = (row % count + count) % count;
    setCurrentRow(qBound(0, row, count - 1));
}

void menuDialog::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
        moveSelection(-1, !event->isAutoRepeat());
        break;
    case Qt::Key_Down:
        moveSelection(1, !event->isAutoRepeat());
        break;
    case Qt::Key_PageUp:
        moveSelection(-rowsPerPage(), false);
        break;
    case Qt::Key_PageDown:
        moveSelection(rowsPerPage(), false);
        break;
    case Qt::Key_Home:
        setCurrentRow(0);
        break;
    case Qt::Key_End:
        setCurrentRow(m_list->count() - 1);
        break;
    default:
        KeypadDialog::keyPressEvent(event);
        return;
    }
    event->accept();
}
