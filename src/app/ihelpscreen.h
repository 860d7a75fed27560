#pragma once

#include <QString>

class IHelpScreen
{
public:
    virtual ~IHelpScreen() = default;
    virtual void setPage(QString page) = 0;
};
