#pragma once

#include <QStringList>

// A software update on a USB stick, in a folder of our own format:
//
//   ductline-update/version           one line: the version the unit will report
//   ductline-update/files/...         files laid out as on the unit, e.g. files/opt/hbi/bin/x.sh
//   ductline-update/manifest.sha256   "<sha256>  <path>" for version and every file, as
//                                     sha256sum writes it from inside the folder
//
// Nothing is installed unless every file is listed, every listed file is there
// with its checksum, and no path leaves the package.
class UpdatePackage
{
public:
    static constexpr qint64 kMaxManifestBytes = 1 << 20;
    static QString folderName() { return QStringLiteral("ductline-update"); }

    explicit UpdatePackage(const QString &folder);

    // Reads the manifest and checks every file; false with error() set when bad.
    bool verify();
    QString error() const { return m_error; }
    QString version() const { return m_version; }
    // Paths on the unit, e.g. "/opt/hbi/bin/x.sh".
    QStringList unitFiles() const;
    // Puts every file in place and the version in /opt/hbi/version. Each file is
    // written beside its target first; only when all are written are they renamed.
    bool install();

private:
    bool fail(const QString &reason);
    bool readManifest(QHash<QString, QByteArray> *sums);
    static bool isSafePath(const QString &path);
    static QByteArray sha256(const QString &file, bool *ok);

    QString m_folder;
    QString m_error;
    QString m_version;
    QStringList m_files;  // relative to the package, "files/..."
    bool m_verified = false;
};
