#include "app/browser/reportpage.h"

#include "core/uikeys.h"
#include "widgets/hbilabel.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QVBoxLayout>

ReportPage::ReportPage(QWidget *parent) : QWidget(parent)
{
    m_heading = new hbiLabel(QString(), this, hbiLabel::kTitle);
    m_heading->setWordWrap(false);
    m_list = new QListWidget(this);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setUniformItemSizes(true);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->installEventFilter(this);
    setFocusProxy(m_list);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_heading);
    auto *content = new QVBoxLayout;
    content->addWidget(m_list, 1);
    layout->addLayout(content, 1);
    connect(m_list, &QListWidget::currentRowChanged, this, &ReportPage::currentRowChanged);
}

QVBoxLayout *ReportPage::contentLayout() const
{
    return qobject_cast<QVBoxLayout *>(layout()->itemAt(1)->layout());
}

void ReportPage::setList(const QStringList &list)
{
    int row = m_list->currentRow();
    m_cache = list;
    const QSignalBlocker quiet(m_list);
    m_list->clear();
    m_list->addItems(list);
    if (row != 0 && row >= list.size())
        row = list.size() - 1;
    m_list->setCurrentRow(qMax(0, row));
    emit currentRowChanged(m_list->currentRow());
}

int ReportPage::currentRow() const
{
    return m_list->currentRow();
}

void ReportPage::setCurrentRow(int row)
{
    m_list->setCurrentRow(row);
}

QString ReportPage::currentText() const
{
    const QListWidgetItem *item = m_list->currentItem();
    return item ? item->text() : QString();
}

QString ReportPage::heading() const
{
    return m_heading->text();
}

void ReportPage::setHeading(const QString &text)
{
    m_heading->setText(text);
}

bool ReportPage::isPageKey(int key) const
{
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Backspace:
    case Qt::Key_C:
    case Qt::Key_R:
    case Ui::Key_MediaPlay:
    case Ui::Key_MediaPause:
    case Ui::Key_MediaStop:
    case Ui::Key_MediaRewind:
    case Ui::Key_MediaForward:
        return true;
    default:
        return false;
    }
}

// The list would take Left, Right and Return for itself; they belong to the level.
bool ReportPage::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_list && (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease)) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (m_control && isPageKey(key->key())) {
            if (event->type() == QEvent::KeyPress)
                keyPressEvent(key);
            else
                keyReleaseEvent(key);
            return key->isAccepted();
        }
    }
    return QWidget::eventFilter(watched, event);
}

void ReportPage::keyPressEvent(QKeyEvent *event)
{
    if (!m_control || !isPageKey(event->key())) {
        event->ignore();
        return;
    }
    if (!event->isAutoRepeat())
        m_pressedKey = event->key();
    event->accept();
}

void ReportPage::keyReleaseEvent(QKeyEvent *event)
{
    if (!m_control || !isPageKey(event->key())) {
        event->ignore();
        return;
    }
    event->accept();
    if (event->isAutoRepeat() || event->key() != m_pressedKey)
        return;
    m_pressedKey = 0;
    if (!handleKey(event->key()))
        event->ignore();
}

void ReportPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_list->setFocus(Qt::OtherFocusReason);
}
