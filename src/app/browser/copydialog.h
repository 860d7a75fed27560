#pragma once

#include "widgets/keypaddialog.h"

#include <QStringList>

class QListWidget;
class hbiLabel;

// Where a site or survey is to be copied to. Up and Down choose the device, OK
// copies, Escape cancels.
class CopyDialog : public KeypadDialog
{
    Q_OBJECT
public:
    explicit CopyDialog(QWidget *parent = nullptr);

    void setSiteName(const QString &name);
    void setSurveyName(const QString &name);
    // Fills the list and selects its first row.
    void setDeviceList(const QStringList &devices);
    QString selectedDevice() const;

protected:
    void actOnKey(int key) override;
    void answerClosed() override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void retranslate();

    hbiLabel *m_site = nullptr;
    hbiLabel *m_survey = nullptr;
    QListWidget *m_devices = nullptr;
    QString m_siteName;
    QString m_surveyName;
};
