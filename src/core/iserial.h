#pragma once

#include <string>

class ISerialDelegate;

// A line source towards the power board. Protocol code talks to this, never to a
// device, so the decoder can be fed from anywhere.
class ISerial
{
public:
    virtual ~ISerial() = default;

    virtual void setDelegate(ISerialDelegate *delegate) { m_delegate = delegate; }
    virtual void setPort(char *device) { m_dev = device ? device : ""; }
    // 0 on success, 1 on failure.
    virtual int open() = 0;
    virtual void close() = 0;
    virtual void sendText(const char *text) = 0;
    virtual void setReceiver(ISerialDelegate *delegate) { setDelegate(delegate); }

protected:
    ISerialDelegate *m_delegate = nullptr;
    std::string m_dev;
    int m_baud = 0;
};
