#pragma once

#include <QCoreApplication>
#include <QString>

// What the service console does with a USB stick, apart from its screen. Every
// action leaves the unit as it was when it fails, and says why in its message.
class ServiceActions
{
    Q_DECLARE_TR_FUNCTIONS(ServiceActions)

public:
    struct Result {
        bool ok = false;
        QString message;
    };

    static QString serviceFolderName() { return QStringLiteral("ductline-service"); }
    static QString settingsFileName() { return QStringLiteral("Ductline.conf"); }
    static QString logoFileName() { return QStringLiteral("logo.png"); }
    static constexpr int kMaxLogoWidth = 800;
    static constexpr int kMaxLogoHeight = 600;

    // The first USB stick the storage table knows, or empty.
    static QString usbPath();

    // The program's logs and the hardware logs into <stick>/ductline-service/logs-<stamp>/.
    static Result saveLogs(const QString &stick);
    // The settings file into <stick>/ductline-service/Ductline.conf.
    static Result saveSettings(const QString &stick);
    // Takes the known keys from <stick>/ductline-service/Ductline.conf; others are ignored.
    static Result loadSettings(const QString &stick);
    static Result updateSoftware(const QString &stick);
    // <stick>/logo.png, when it is a picture that fits the screen, becomes /opt/hbi/logo.png.
    static Result updateLogo(const QString &stick);

private:
    static int copyFolder(const QString &from, const QString &to, bool *ok);
};
