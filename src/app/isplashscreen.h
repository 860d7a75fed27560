#pragma once

#include <QString>

class ISplashScreen
{
public:
    virtual ~ISplashScreen() = default;
    virtual void setProgress(const QString &text, int value) = 0;
};
