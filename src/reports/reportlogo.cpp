#include "reports/reportlogo.h"

#include "core/unitpaths.h"

#include <QDebug>
#include <QFile>
#include <QLabel>
#include <QPixmap>

namespace {
const QString kDefaultLogo = QStringLiteral("Logo-wback-btext.PNG");
constexpr int kLogoWidth = 863;
constexpr int kLogoHeight = 226;
} // namespace

QString fittedUserLogo()
{
    const QString logo = unitPath(QStringLiteral("/opt/hbi/logo.png"));
    QPixmap pixmap;
    if (!QFile::exists(logo) || !pixmap.load(logo)) {
        qInfo() << "No user logo, using default";
        return kDefaultLogo;
    }
    QLabel label;
    label.setFixedSize(kLogoWidth, kLogoHeight);
    label.setAlignment(Qt::AlignCenter);
    label.setAttribute(Qt::WA_TranslucentBackground);
    label.setPixmap(pixmap.scaled(kLogoWidth, kLogoHeight, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    QPixmap fitted(kLogoWidth, kLogoHeight);
    fitted.fill(Qt::transparent);
    label.render(&fitted, QPoint(), QRegion(), QWidget::DrawChildren);
    const QString resized = unitPath(QStringLiteral("/opt/hbi/logo_resize.png"));
    if (QFile::exists(resized) && !QFile::remove(resized))
        qWarning() << "Could not remove" << resized;
    return fitted.save(resized, "PNG") ? resized : kDefaultLogo;
}
