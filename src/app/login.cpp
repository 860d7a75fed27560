#include "app/login.h"

#include <QHostAddress>
#include <QLabel>
#include <QNetworkInterface>
#include <QTimer>
#include <QVBoxLayout>

Login::Login(QWidget *parent) : PipeScreen(parent)
{
    setWhatsThis(QStringLiteral("Login screen"));
    label_logo = new QLabel(this);
    label_password = new QLabel(tr("Welcome"), this);
    label_password_2 = new QLabel(tr("Press Return to start"), this);
    label_status = new QLabel(tr("Starting..."), this);
    label_ip_address = new QLabel(firstIPv4Address(), this);
    for (QLabel *label : {label_logo, label_password, label_password_2, label_status, label_ip_address})
        label->setAlignment(Qt::AlignCenter);
    label_password->setObjectName(QStringLiteral("title"));

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(60, 60, 60, 40);
    layout->addStretch();
    layout->addWidget(label_logo);
    layout->addSpacing(30);
    layout->addWidget(label_password);
    layout->addWidget(label_password_2);
    layout->addWidget(label_status);
    layout->addStretch();
    layout->addWidget(label_ip_address);
    showProductLogo(label_logo);
}

QString Login::firstIPv4Address()
{
    const auto addresses = QNetworkInterface::allAddresses();
    for (const QHostAddress &address : addresses) {
        if (address.protocol() == QAbstractSocket::IPv4Protocol && address != QHostAddress(QHostAddress::LocalHost))
            return address.toString();
    }
    return QString();
}

QString Login::ipAddressText() const
{
    return label_ip_address->text();
}

void Login::showEvent(QShowEvent *event)
{
    PipeScreen::showEvent(event);
    QTimer::singleShot(10, this, &Login::reload);
}

void Login::reload()
{
    label_status->hide();
}
