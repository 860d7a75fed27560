#pragma once

class ILoginScreen
{
public:
    virtual ~ILoginScreen() = default;
};
