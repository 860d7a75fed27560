#pragma once

#include "widgets/textentrydialog.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QListWidget;
class QMovie;

class Wifi;

// The Wi-Fi page of the settings screen: the networks in range with their
// strength, the one joined marked. Return on a network asks for its password and
// joins it; R scans again, D leaves the network joined, S shows or hides the
// password as it is typed.
class settingsnetwork : public QWidget
{
    Q_OBJECT
public:
    explicit settingsnetwork(QWidget *parent = nullptr);

    // The scan's lines as the page lists them: name, then quality out of 70.
    struct Network {
        QString ssid;
        int quality = 0;
    };
    static QList<Network> parseScan(const QString &scan);
    // The known networks' lines: index and name.
    static QList<QPair<QString, QString>> parseKnown(const QString &list);

    QStringList shownNetworks() const;
    QString statusText() const;
    bool isConnecting() const;
    TextEntryDialog *passwordDialog() const { return m_passwordDialog; }
    bool showsPassword() const { return m_showPassword; }

public slots:
    void updateWifiList(QString list, QString ssid, bool changed, bool good);
    void joinSelected();
    void passwordEntered(int key, QString pass);
    void connectFailure();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    Wifi *wifi();
    void setConnecting(bool connecting);
    void followState();
    void fillList();
    void showStatus();
    void retranslate();

    Wifi *m_wifi = nullptr;
    QLabel *m_title = nullptr;
    QLabel *m_status = nullptr;
    QLabel *m_spinner = nullptr;
    QLabel *m_hint = nullptr;
    QMovie *m_movie = nullptr;
    QListWidget *m_list = nullptr;
    QPointer<TextEntryDialog> m_passwordDialog;
    QList<Network> m_networks;
    QString m_joined;
    QString m_chosen;
    bool m_connecting = false;
    bool m_scanFailed = false;
    bool m_showPassword = true;
};
