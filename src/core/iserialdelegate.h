#pragma once

#include <QObject>
#include <QString>

class ISerial;

// Receives each complete line of an ISerial, on the main thread.
class ISerialDelegate : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    virtual void didReceiveData(ISerial *serial, const QString &line) = 0;
};
