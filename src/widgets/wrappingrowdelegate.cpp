#include "widgets/wrappingrowdelegate.h"

#include <QAbstractItemView>

WrappingRowDelegate::WrappingRowDelegate(QAbstractItemView *view) : QStyledItemDelegate(view), m_view(view) {}

void WrappingRowDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->features |= QStyleOptionViewItem::WrapText;
}

// A list view asks for a row's size without saying how wide the row will be;
// the text wraps at the list's own width.
QSize WrappingRowDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyleOptionViewItem sized = option;
    const int width = m_view->viewport()->width() > 0 ? m_view->viewport()->width() : m_view->minimumWidth();
    sized.rect.setWidth(width);
    QSize size = QStyledItemDelegate::sizeHint(sized, index);
    size.setWidth(qMin(size.width(), width));
    return size;
}
