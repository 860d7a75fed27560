#pragma once

#include <QStyledItemDelegate>

class QAbstractItemView;

// Draws a list's rows on as many lines as the list's width needs, so a row
// longer than the screen is read whole instead of cut short.
class WrappingRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit WrappingRowDelegate(QAbstractItemView *view);

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    QAbstractItemView *m_view;
};
