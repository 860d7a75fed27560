#include "app/splashpicture.h"

#include "core/unitpaths.h"

#include <QFile>
#include <QLabel>
#include <QPixmap>

void createSplashScreen()
{
    QLabel label;
    label.setFixedSize(800, 600);
    const QPixmap customer(unitPath(QStringLiteral("/opt/hbi/splash.png")));
    label.setScaledContents(false);
    QPalette palette = label.palette();
    palette.setColor(QPalette::Window, Qt::black);
    label.setPalette(palette);
    label.setAutoFillBackground(true);
    label.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    if (!customer.isNull())
        label.setPixmap(customer.scaled(label.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    label.setAlignment(Qt::AlignCenter);
    QPixmap rendered(label.size());
    label.render(&rendered, QPoint(), QRegion(), QWidget::DrawWindowBackground | QWidget::DrawChildren);
    const QString userSplash = unitPath(QStringLiteral("/opt/hbi/splash_user.png"));
    if (QFile::exists(userSplash))
        QFile::remove(userSplash);
    rendered.save(userSplash, "PNG");
    label.close();
}

bool hasCustomerSplash()
{
    return QFile::exists(unitPath(QStringLiteral("/opt/hbi/splash.png")));
}

QString splashPicture(const QString &language)
{
    if (hasCustomerSplash()) {
        createSplashScreen();
        return unitPath(QStringLiteral("/opt/hbi/splash_user.png"));
    }
    return productSplashPicture(language);
}

QString productSplashPicture(const QString &language)
{
    if (language == QLatin1String("en-US"))
        return unitPath(QStringLiteral("/opt/hbi/wayfell_splash.png"));
    return unitPath(QStringLiteral("/opt/hbi/lanthorn_splash.png"));
}
