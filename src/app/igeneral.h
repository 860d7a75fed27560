#pragma once

class Controller;

class IGeneral
{
public:
    virtual ~IGeneral() = default;
    virtual void setController(Controller *controller) = 0;
};
