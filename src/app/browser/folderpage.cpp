#include "app/browser/folderpage.h"

#include "app/controller.h"
#include "storage/reportmanager.h"

#include <QDebug>

FolderPage::FolderPage(QWidget *parent) : ReportPage(parent) {}

QString FolderPage::keyHint() const
{
    return tr("Right/OK: open   Left/ESC: up   C: copy   Backspace: delete");
}

bool FolderPage::canOpen(const QString &) const
{
    return true;
}

QString FolderPage::selectedPath() const
{
    return m_current_path + QLatin1Char('/') + currentText();
}

bool FolderPage::handleKey(int key)
{
    // Nothing is chosen until the level has been read.
    if (currentText() == ReportManager::kRefreshing && key != Qt::Key_Left && key != Qt::Key_Escape)
        return true;
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Escape:
        control()->reportUp();
        return true;
    case Qt::Key_Right:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (canOpen(currentText()))
            control()->reportDown(currentRow());
        return true;
    case Qt::Key_Backspace:
        handleDelete();
        return true;
    case Qt::Key_C:
        handleCopy();
        return true;
    case Qt::Key_R:
        return true;
    default:
        return false;
    }
}

void FolderPage::handleCopy()
{
    if (currentRow() < 0 || m_current_path.isEmpty()) {
        qInfo() << "Nothing selected to copy";
        return;
    }
    emit copy(selectedPath());
}

void FolderPage::handleDelete()
{
    if (currentRow() < 0 || m_current_path.isEmpty()) {
        qInfo() << "Nothing selected to delete";
        return;
    }
    emit remove(selectedPath());
}
