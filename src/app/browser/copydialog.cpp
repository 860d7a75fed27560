#include "app/browser/copydialog.h"

#include "widgets/hbilabel.h"

#include <QEvent>
#include <QKeyEvent>
#include <QListWidget>
#include <QVBoxLayout>

CopyDialog::CopyDialog(QWidget *parent) : KeypadDialog(parent, tr("Copy"))
{
    m_site = new hbiLabel(this);
    m_survey = new hbiLabel(this);
    m_devices = new QListWidget(this);
    m_devices->setFocusPolicy(Qt::NoFocus);
    m_devices->setSelectionMode(QAbstractItemView::SingleSelection);
    m_devices->setMinimumWidth(360);
    contentLayout()->addWidget(m_site);
    contentLayout()->addWidget(m_survey);
    contentLayout()->addWidget(m_devices);
    retranslate();
}

void CopyDialog::retranslate()
{
    m_site->setText(tr("Site: %1").arg(m_siteName));
    m_survey->setText(tr("Survey: %1").arg(m_surveyName));
    setKeyHint(tr("Up/Down: choose the device   OK: copy   ESC: cancel"));
}

void CopyDialog::setSiteName(const QString &name)
{
    m_siteName = name;
    retranslate();
}

void CopyDialog::setSurveyName(const QString &name)
{
    m_surveyName = name;
    retranslate();
}

void CopyDialog::setDeviceList(const QStringList &devices)
{
    m_devices->clear();
    m_devices->addItems(devices);
    m_devices->setCurrentRow(0);
    m_devices->setFixedHeight(qMax(1, int(devices.size())) * m_devices->sizeHintForRow(0) + 8);
}

QString CopyDialog::selectedDevice() const
{
    const QListWidgetItem *item = m_devices->currentItem();
    return item ? item->text() : QString();
}

void CopyDialog::actOnKey(int key)
{
    finish(key == Qt::Key_Escape ? Rejected : Accepted);
}

void CopyDialog::answerClosed() {}

void CopyDialog::keyPressEvent(QKeyEvent *event)
{
    const int count = m_devices->count();
    if (count > 0 && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)) {
        const int step = event->key() == Qt::Key_Up ? -1 : 1;
        m_devices->setCurrentRow((m_devices->currentRow() + step + count) % count);
        event->accept();
        return;
    }
    KeypadDialog::keyPressEvent(event);
}

void CopyDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    KeypadDialog::changeEvent(event);
}
