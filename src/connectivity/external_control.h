#pragma once

#include "core/singleton.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QString>

class QImage;
class QTcpSocket;
class QTimer;
class QUdpSocket;

// The link to the Ostra mobile app. The app listens; the unit connects out to
// it, answers its heartbeat, hands each command line on (sendKeyPress) and
// carries the files: site images and maps come in as Base64 ended by silence,
// the survey's report and XML file go out as Base64 ended by a carriage return.
class external_control : public QObject
{
    Q_OBJECT
public:
    enum OstraState { kNoOstra = 0, kOstra = 1 };
    Q_ENUM(OstraState)
    enum Mode { kNormal = 0, kImage = 1 };
    Q_ENUM(Mode)

    static constexpr quint16 kAppPort = 8082;
    static constexpr quint16 kDiscoveryPort = 8083;
    static constexpr int kKeepaliveMs = 20000;
    static constexpr int kImageEndMs = 5000;
    static constexpr int kAnswerMs = 20000;
    static constexpr int kConnectWaitMs = 500;
    static constexpr int kDiscoveryConnectWaitMs = 4000;
    static constexpr int kConnectAttempts = 2;
    static constexpr int kFileSyncWaitMs = 1000;
    // Bounds that keep a misbehaving peer from growing the console's memory or
    // filling the survey's medium.
    // Received data is handled in blocks of this size.
    static constexpr qint64 kReadBlockBytes = 64 * 1024;
    static constexpr int kMaxCommandLength = 1024;
    static constexpr qint64 kMaxPendingReplyBytes = 1024 * 1024;
    static constexpr qint64 kMaxImageDumpBytes = 64 * 1024 * 1024;

    static external_control *instance(QObject *parent = nullptr);

    // Links to the app at the default gateway; false, and the operator told, when none answers.
    bool doConnect();
    // Writes the fixed reply of `word`; a word without a reply writes nothing.
    void doWrite(const QString &word);
    void writeIDN();
    // Prepares the receive of an image of `type` for `dest` ("Map" or "Site").
    void setFileType(QString type, QString dest);
    void setFileSize(int size) { fileSize = size; }
    void setMode(Mode mode) { ReadMode = mode; }
    Mode mode() const { return ReadMode; }
    // Announces the survey's report; true when there is one to send.
    bool getFileData();
    // Announces the survey's XML file; true when there is one to send.
    bool getXmlData();
    // Sends the announced file, once the app has said it is ready for it.
    void fileWrite();
    void stopTimer();
    // A sent file waits for the app to say how it went.
    bool awaitingAnswer() const;

    bool isConnected() const;
    QString gatewayAddress() const { return gateway; }
    QString receivePath() const { return fileName; }
    QString dumpFilePath() const { return dumpPath; }
    // The simulated unit's tests run several links at once, each on ports of its own.
    void setPorts(quint16 appPort, quint16 discoveryPort);

signals:
    void sendKeyPress(QString command);
    void updateOstraState(int state);
    void mapTransferStatus(bool ok);

public slots:
    void connected();
    void disconnected();
    void bytesWritten(qlonglong bytes);
    void readyRead();
    void readyReadUDP();
    void modeReset();
    void pdfTimeout();
    void handledisconnect();

private:
    friend class Singleton<external_control>;
    explicit external_control(QObject *parent);

    void replaceSockets();
    void bindDiscovery();
    bool connectTo(const QString &address, int waitMs);
    void readCommands(const QByteArray &block);
    void readImageData(QByteArray block);
    bool answerHeartbeat(QByteArray *block);
    void writeReply(const QByteArray &bytes);
    void announce(const QString &type, const QString &path, const QString &label);
    bool storeReceivedImage(const QByteArray &base64);
    void siteImageResize(const QImage &image);
    void syncDirectory(const QString &directory);
    static QString surveyDirectory();

    QPointer<QTcpSocket> socket;
    QPointer<QUdpSocket> udpsocket;
    QString gateway;
    Mode ReadMode = kNormal;
    QString fileType;
    int fileSize = 0;
    QString fileName;
    QString transferPath;
    QString dumpPath;
    QTimer *m_timer = nullptr;
    QTimer *m_pdfTimer = nullptr;
    QTimer *m_keepalive = nullptr;
    quint16 m_appPort = kAppPort;
    quint16 m_discoveryPort = kDiscoveryPort;
    bool m_dumpOverflow = false;
};
