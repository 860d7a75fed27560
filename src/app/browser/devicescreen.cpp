#include "app/browser/devicescreen.h"

#include "app/controller.h"
#include "storage/networkstorage.h"

#include <QDebug>

DeviceScreen::DeviceScreen(QWidget *parent) : ReportPage(parent) {}

void DeviceScreen::setPath(const QString &device, const QString &path)
{
    m_current_path = path;
    setHeading(device);
}

QString DeviceScreen::keyHint() const
{
    return tr("Up/Down: choose   Right/OK: open   Left/ESC: back   R: refresh cloud");
}

bool DeviceScreen::handleKey(int key)
{
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Escape:
        control()->popScreen();
        return true;
    case Qt::Key_Right:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        control()->reportDown(currentRow());
        return true;
    case Qt::Key_Backspace:
    case Qt::Key_C:
        qInfo() << "A whole device is neither copied nor deleted; open it and choose a site";
        return true;
    case Qt::Key_R:
        NetworkStorage::instance()->autoScan();
        return true;
    default:
        return false;
    }
}

void DeviceScreen::showEvent(QShowEvent *event)
{
    ReportPage::showEvent(event);
    NetworkStorage::instance()->autoScan();
}
