#pragma once

#include "app/isplashscreen.h"
#include "widgets/pipescreen.h"

class Controller;
class QLabel;
class QProgressBar;

// The first page: logo and a progress bar while the controller starts the unit.
class Splash : public PipeScreen, public ISplashScreen
{
    Q_OBJECT
public:
    explicit Splash(QWidget *parent = nullptr);

    void setProgress(const QString &text, int value) override;
    int progress() const;
    QString statusText() const;

public slots:
    void setController(Controller *controller) { control = controller; }

private:
    QLabel *label_logo = nullptr;
    QProgressBar *progressBar = nullptr;
    QLabel *label_status = nullptr;
    Controller *control = nullptr;
};
