#pragma once

#include <QWidget>

class NetworkStorage;
class P_ComboBox;
class P_LineEdit;
class P_PushButton;
class QLabel;
class QMovie;

// The cloud page of the settings screen: the operator chooses the FTP site or
// WinCan Web, enters the host (WinCan Web's is fixed), user name and password
// and tests the connection, which also saves them and, when it succeeds, mounts
// the site as "Cloud" or "WinCan Web".
class SettingsCloud : public QWidget
{
    Q_OBJECT
public:
    explicit SettingsCloud(QWidget *parent = nullptr);

    QString host() const;
    QString username() const;
    QString password() const;
    bool isTesting() const;
    bool isWinCanWeb() const { return wincanweb; }

public slots:
    void testConnection();
    void connectionSuccess();
    void connectionFailure();
    void updateFields(QString host, QString user, QString password);
    void readSettings();
    void setWinCanWeb(bool on);

signals:
    void scan(QString host, QString user, QString password);

protected:
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void tell(bool warning, const QString &title, const QString &text);
    void showService();

    NetworkStorage *m_cloud = nullptr;
    P_ComboBox *m_service = nullptr;
    P_LineEdit *m_host = nullptr;
    P_LineEdit *m_username = nullptr;
    P_LineEdit *m_password = nullptr;
    P_PushButton *m_test = nullptr;
    QLabel *m_loadingLabel = nullptr;
    QMovie *loading = nullptr;
    volatile bool wincanweb = false;
};
