#include "connectivity/external_control.h"

#include "connectivity/appcommand.h"
#include "connectivity/routetable.h"
#include "core/unitpaths.h"
#include "survey/surveymanager.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QNetworkDatagram>
#include <QNetworkInterface>
#include <QProcess>
#include <QTcpSocket>
#include <QTimer>
#include <QUdpSocket>

namespace {
const QByteArray kHeartbeat = QByteArrayLiteral("ostraapp beat"); // matched in any case
const QByteArray kHeartbeatAnswer = QByteArrayLiteral("Lanthorn Beat\r");
const QByteArray kGreeting = QByteArrayLiteral("Connected To LanthornPi");
const QByteArray kIdentity = QByteArrayLiteral("QX7106 v3.0.27.000\n");
const QString kDiscoveryWord = QStringLiteral("OstraIP");
const QString kDiscoveryGroup = QStringLiteral("192.168.0.255");
const QString kWirelessInterface = QStringLiteral("wlan0");
const QString kNotSet = QStringLiteral("not-set");
const QString kReportName = QStringLiteral("Report.pdf");
const QString kDumpName = QStringLiteral("dump.txt");
constexpr char kLineEnd = '\r';
constexpr int kSiteImageHeight = 600;
constexpr qint64 kMaxDatagramBytes = 512;

external_control *theInstance = nullptr;

SurveyManager *survey()
{
    return SurveyManager::instance();
}

QString reportLabel()
{
    switch (survey()->type()) {
    case SurveyManager::kSurveyType_CORVANE:
        return QStringLiteral("Ostra");
    case SurveyManager::kSurveyType_WINCAN:
        return QStringLiteral("WinCan");
    default:
        return QStringLiteral("Err");
    }
}

QString clipped(const QByteArray &bytes)
{
    constexpr int kShown = 80;
    return QString::fromLatin1(bytes.left(kShown)) + (bytes.size() > kShown ? QStringLiteral("...") : QString());
}
} // namespace

external_control *external_control::instance(QObject *parent)
{
    return Singleton<external_control>::instance(theInstance, parent);
}

external_control::external_control(QObject *parent)
    : QObject(parent),
      m_timer(new QTimer(this)),
      m_pdfTimer(new QTimer(this)),
      m_keepalive(new QTimer(this))
{
    m_timer->setSingleShot(true);
    m_timer->setInterval(kImageEndMs);
    connect(m_timer, &QTimer::timeout, this, &external_control::modeReset);
    m_pdfTimer->setSingleShot(true);
    m_pdfTimer->setInterval(kAnswerMs);
    connect(m_pdfTimer, &QTimer::timeout, this, &external_control::pdfTimeout);
    m_keepalive->setSingleShot(true);
    m_keepalive->setInterval(kKeepaliveMs);
    connect(m_keepalive, &QTimer::timeout, this, &external_control::handledisconnect);
}

void external_control::setPorts(quint16 appPort, quint16 discoveryPort)
{
    m_appPort = appPort;
    m_discoveryPort = discoveryPort;
}

bool external_control::isConnected() const
{
    return socket && socket->state() == QAbstractSocket::ConnectedState;
}

QString external_control::surveyDirectory()
{
    const QString directory = survey()->getDirectory();
    return directory == kNotSet ? QString() : directory;
}

// ---- Linking ----------------------------------------------------------------------

void external_control::replaceSockets()
{
    // A relink replaces the old link rather than leaving it open beside the new
    // one, where it would go on answering and taking commands.
    if (socket) {
        socket->disconnect(this);
        socket->abort();
        socket->deleteLater();
    }
    if (udpsocket) {
        udpsocket->disconnect(this);
        udpsocket->close();
        udpsocket->deleteLater();
    }
    // No read buffer limit: a full limited buffer can leave readyRead unsignalled
    // for good. Every readyRead drains the socket, so what is held stays what the
    // kernel delivered at once.
    socket = new QTcpSocket(this);
    connect(socket, &QTcpSocket::connected, this, &external_control::connected);
    connect(socket, &QTcpSocket::disconnected, this, &external_control::disconnected);
    connect(socket, &QTcpSocket::bytesWritten, this, &external_control::bytesWritten);
    connect(socket, &QTcpSocket::readyRead, this, &external_control::readyRead);
    udpsocket = new QUdpSocket(this);
    connect(udpsocket, &QUdpSocket::readyRead, this, &external_control::readyReadUDP);
}

void external_control::bindDiscovery()
{
    // Bound also when the unit has no address but its loopback, so a unit on
    // the bench (and the simulated one) is found by an app on the same machine.
    if (!udpsocket->bind(QHostAddress::AnyIPv4, m_discoveryPort,
                         QUdpSocket::ShareAddress | QUdpSocket::ReuseAddressHint)) {
        qInfo().noquote() << "App discovery: cannot bind port" << m_discoveryPort << udpsocket->errorString();
        return;
    }
    const QNetworkInterface wireless = QNetworkInterface::interfaceFromName(kWirelessInterface);
    if (!wireless.isValid() || !udpsocket->joinMulticastGroup(QHostAddress(kDiscoveryGroup), wireless))
        qInfo().noquote() << "App discovery: could not join" << kDiscoveryGroup << "on" << kWirelessInterface;
}

bool external_control::connectTo(const QString &address, int waitMs)
{
    socket->connectToHost(address, m_appPort, QIODevice::ReadWrite);
    if (socket->waitForConnected(waitMs)) {
        gateway = address;
        emit sendKeyPress(QStringLiteral("IP ") + address);
        return true;
    }
    qInfo().noquote() << "No app at" << address << "port" << m_appPort << ":" << socket->errorString();
    socket->abort();
    return false;
}

bool external_control::doConnect()
{
    replaceSockets();
    bindDiscovery();
    const QStringList gateways = RouteTable::defaultGateways(unitPath(QStringLiteral("/proc/net/route")));
    for (const QString &candidate : gateways) {
        for (int attempt = 0; attempt < kConnectAttempts; ++attempt) {
            if (connectTo(candidate, kConnectWaitMs))
                return true;
        }
    }
    qInfo() << "Failed to connect to ostra app";
    survey()->showMessage(tr("Error:"), {tr("Failed to connect to ostra app")});
    return false;
}

void external_control::readyReadUDP()
{
    QString address;
    while (udpsocket && udpsocket->hasPendingDatagrams()) {
        const QNetworkDatagram datagram = udpsocket->receiveDatagram(kMaxDatagramBytes);
        const QString text = QString::fromLatin1(datagram.data());
        const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (words.value(0) != kDiscoveryWord) {
            qInfo().noquote() << "invalid message: " + clipped(datagram.data());
            continue;
        }
        QHostAddress named(words.value(1));
        if (words.value(1).isEmpty())
            named = QHostAddress(datagram.senderAddress().toIPv4Address());
        if (named.isNull() || named.protocol() != QAbstractSocket::IPv4Protocol) {
            qInfo().noquote() << "invalid message: " + clipped(datagram.data());
            continue;
        }
        address = named.toString();
    }
    // A burst of discoveries links once, to the last address named.
    if (address.isEmpty() || !socket)
        return;
    if (isConnected() && socket->peerAddress() == QHostAddress(address) && socket->peerPort() == m_appPort)
        return;
    socket->abort();
    if (!connectTo(address, kDiscoveryConnectWaitMs))
        qInfo().noquote() << "App discovery: could not link to" << address;
}

void external_control::connected()
{
    qInfo().noquote() << "Linked to the ostra app at" << socket->peerAddress().toString();
    m_keepalive->start();
    emit updateOstraState(kOstra);
    socket->write(kGreeting);
}

void external_control::disconnected()
{
    qInfo() << "The ostra app link is down";
    m_keepalive->stop();
    // A stream to the app has nowhere to go once the link is down.
    emit sendKeyPress(QStringLiteral("StopStream"));
    emit updateOstraState(kNoOstra);
}

void external_control::handledisconnect()
{
    qInfo() << "The ostra app has been silent for" << kKeepaliveMs / 1000 << "s: dropping the link";
    if (!socket)
        return;
    socket->disconnectFromHost();
    // A peer that stopped reading would hold the close back until it took our replies.
    if (socket->state() != QAbstractSocket::UnconnectedState)
        socket->abort();
}

void external_control::bytesWritten(qlonglong)
{
    // Nothing waits on a write: the app's answers tell how a transfer went.
}

// ---- Reading ----------------------------------------------------------------------

void external_control::readyRead()
{
    m_timer->stop();
    m_keepalive->start();
    while (socket && socket->bytesAvailable() > 0) {
        const QByteArray block = socket->read(kReadBlockBytes);
        if (ReadMode == kImage)
            readImageData(block);
        else
            readCommands(block);
    }
}

bool external_control::answerHeartbeat(QByteArray *block)
{
    const int at = block->toLower().indexOf(kHeartbeat);
    if (at < 0)
        return false;
    writeReply(kHeartbeatAnswer);
    block->remove(at, kHeartbeat.size());
    return true;
}

void external_control::readCommands(const QByteArray &block)
{
    // Each read is taken as whole lines: the app never splits a command.
    const QList<QByteArray> pieces = block.split(kLineEnd);
    for (const QByteArray &rawPiece : pieces) {
        QByteArray piece = rawPiece.trimmed();
        if (piece.isEmpty())
            continue;
        if (answerHeartbeat(&piece))
            continue;
        if (piece.size() > kMaxCommandLength) {
            qInfo().noquote() << "App link: dropped a line of" << piece.size() << "bytes:" << clipped(piece);
            continue;
        }
        emit sendKeyPress(QString(piece));
    }
}

void external_control::readImageData(QByteArray block)
{
    answerHeartbeat(&block);
    const QString directory = surveyDirectory();
    // Without a survey folder there is nowhere the data may go.
    if (directory.isEmpty()) {
        doWrite(QStringLiteral("FileError 1"));
        m_timer->start();
        return;
    }
    dumpPath = directory + kDumpName;
    QFile dump(dumpPath);
    if (dump.size() + block.size() > kMaxImageDumpBytes) {
        if (!m_dumpOverflow)
            qInfo() << "App link: image data beyond" << kMaxImageDumpBytes << "bytes is dropped";
        m_dumpOverflow = true;
    } else if (dump.open(QIODevice::ReadWrite | QIODevice::Append)) {
        dump.write(block);
        dump.flush();
        dump.close();
    } else {
        qInfo().noquote() << "App link: cannot write" << dumpPath;
    }
    if (fileName.isEmpty() || fileName == kNotSet)
        doWrite(QStringLiteral("FileError 1"));
    m_timer->start();
}

// ---- Image receive ------------------------------------------------------------------

void external_control::setFileType(QString type, QString dest)
{
    fileType = type;
    m_dumpOverflow = false;
    const QString directory = surveyDirectory();
    fileName = directory;
    if (directory.isEmpty())
        return;
    if (dest == QLatin1String("Map")) {
        fileName += QStringLiteral("ReportMap");
    } else if (dest == QLatin1String("Site")) {
        fileName += QStringLiteral("ReportSite");
    } else {
        doWrite(QStringLiteral("FileError 1"));
        return;
    }
    if (type == QLatin1String("jpg") || type == QLatin1String("JPG") || type == QLatin1String("jpeg")
        || type == QLatin1String("JPEG"))
        fileName += QStringLiteral(".jpg");
    else if (type == QLatin1String("png") || type == QLatin1String("PNG"))
        fileName += QStringLiteral(".png");
    else
        doWrite(QStringLiteral("FileError 1"));
    dumpPath = directory + kDumpName;
    QFile::remove(fileName);
    QFile::remove(dumpPath);
}

void external_control::modeReset()
{
    m_timer->stop();
    QByteArray base64;
    QFile dump(dumpPath);
    if (!dumpPath.isEmpty() && dump.open(QIODevice::ReadOnly)) {
        base64 = dump.readAll();
        dump.close();
    }
    const bool result = !m_dumpOverflow && storeReceivedImage(base64);
    doWrite(result ? QStringLiteral("FileError 0") : QStringLiteral("FileError 1"));
    if (!dumpPath.isEmpty())
        QFile::remove(dumpPath);
    ReadMode = kNormal;
    m_dumpOverflow = false;
    syncDirectory(surveyDirectory());
    emit mapTransferStatus(result);
}

bool external_control::storeReceivedImage(const QByteArray &base64)
{
    if (fileName.isEmpty() || fileName == kNotSet || QFileInfo(fileName).isDir())
        return false;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Truncate)) {
        qInfo().noquote() << "App link: cannot write" << fileName;
        return false;
    }
    file.write(QByteArray::fromBase64(base64));
    file.flush();
    file.close();
    if (fileName.contains(QLatin1String("ReportSite"))) {
        const QImage image(fileName);
        if (image.height() > image.width())
            siteImageResize(image);
    }
    qInfo().noquote() << "App link: received" << fileName;
    return true;
}

void external_control::siteImageResize(const QImage &image)
{
    // The report lays the site image out landscape; a portrait one is brought
    // to the page's height. It is stored as PNG whatever its name says.
    const QImage scaled = image.scaledToHeight(kSiteImageHeight, Qt::SmoothTransformation);
    QFile::remove(fileName);
    if (!scaled.save(fileName, "png"))
        qInfo().noquote() << "App link: cannot save the resized site image" << fileName;
}

void external_control::syncDirectory(const QString &directory)
{
    if (directory.isEmpty())
        return;
    QProcess sync;
    sync.start(QStringLiteral("/bin/sh"), {unitScriptPath(QStringLiteral("fileSync.sh")), directory});
    sync.waitForFinished(kFileSyncWaitMs);
    if (sync.state() != QProcess::NotRunning) {
        sync.kill();
        sync.waitForFinished(kFileSyncWaitMs);
    }
}

// ---- Sending ----------------------------------------------------------------------

void external_control::writeReply(const QByteArray &bytes)
{
    if (!isConnected())
        return;
    // A peer that sends without reading our answers must not pile them up here.
    if (socket->bytesToWrite() + bytes.size() > kMaxPendingReplyBytes) {
        qDebug() << "App link: the app is not reading; reply dropped";
        return;
    }
    socket->write(bytes);
}

void external_control::doWrite(const QString &word)
{
    const QByteArray bytes = AppCommand::reply(word);
    if (!bytes.isEmpty())
        writeReply(bytes);
}

void external_control::writeIDN()
{
    writeReply(kIdentity);
}

void external_control::announce(const QString &type, const QString &path, const QString &label)
{
    const qint64 kiloBytes = path.isEmpty() ? 0 : QFileInfo(path).size() / 1000;
    writeReply(QStringLiteral("Transfer %1 %2 %3\r").arg(type).arg(kiloBytes).arg(label).toLatin1());
}

bool external_control::getFileData()
{
    const QString directory = surveyDirectory();
    transferPath = directory.isEmpty() ? QString() : directory + kReportName;
    const bool exists = !transferPath.isEmpty() && QFileInfo(transferPath).isFile();
    // The app is told even when there is no report: it then waits for nothing.
    announce(QStringLiteral("pdf"), exists ? transferPath : QString(), reportLabel());
    return exists;
}

bool external_control::getXmlData()
{
    if (survey()->type() != SurveyManager::kSurveyType_CORVANE)
        return false;
    const QString directory = surveyDirectory();
    if (directory.isEmpty())
        return false;
    const QFileInfoList entries = QDir(directory).entryInfoList(QDir::Files, QDir::Unsorted);
    for (const QFileInfo &entry : entries) {
        if (entry.suffix() == QLatin1String("xml") && entry.isFile()) {
            transferPath = entry.filePath();
            announce(QStringLiteral("xml"), transferPath, QStringLiteral("Ostra"));
            return true;
        }
    }
    return false;
}

void external_control::fileWrite()
{
    QFile file(transferPath);
    if (transferPath.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        qInfo().noquote() << "App link: no file to send" << transferPath;
        return;
    }
    if (isConnected()) {
        socket->write(file.readAll().toBase64());
        socket->write(QByteArray(1, kLineEnd));
    }
    m_pdfTimer->start();
}

void external_control::stopTimer()
{
    m_pdfTimer->stop();
}

bool external_control::awaitingAnswer() const
{
    return m_pdfTimer->isActive();
}

void external_control::pdfTimeout()
{
    qInfo() << "The ostra app did not answer a sent file";
    survey()->showMessage(tr("Note:"), {tr("ostra App Stopped Responding Please Check Your Connection")});
}
