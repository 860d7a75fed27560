#include "app/splash.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

Splash::Splash(QWidget *parent) : PipeScreen(parent)
{
    setWhatsThis(QStringLiteral("Splash screen"));
    label_logo = new QLabel(this);
    label_logo->setAlignment(Qt::AlignCenter);
    progressBar = new QProgressBar(this);
    progressBar->setRange(0, 100);
    progressBar->setValue(0);
    progressBar->setTextVisible(false);
    label_status = new QLabel(tr("Loading..."), this);
    label_status->setAlignment(Qt::AlignCenter);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(80, 60, 80, 60);
    layout->addStretch();
    layout->addWidget(label_logo);
    layout->addSpacing(40);
    layout->addWidget(progressBar);
    layout->addWidget(label_status);
    layout->addStretch();
    showProductLogo(label_logo);
}

void Splash::setProgress(const QString &text, int value)
{
    if (!text.isEmpty())
        label_status->setText(text);
    progressBar->setValue(qBound(0, value, 100));
}

int Splash::progress() const
{
    return progressBar->value();
}

QString Splash::statusText() const
{
    return label_status->text();
}
