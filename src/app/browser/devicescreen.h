#pragma once

#include "app/browser/reportpage.h"

// The top level of the media browser: the mounted devices. Showing it, or R,
// asks the cloud site for its projects again, so "Cloud" is listed while the
// site answers.
class DeviceScreen : public ReportPage
{
    Q_OBJECT
public:
    explicit DeviceScreen(QWidget *parent = nullptr);

    void setPath(const QString &device, const QString &path) override;
    QString keyHint() const override;

protected:
    bool handleKey(int key) override;
    void showEvent(QShowEvent *event) override;
};
