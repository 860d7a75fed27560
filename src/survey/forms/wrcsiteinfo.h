#pragma once

#include "survey/forms/baseinfo.h"

class P_LineEdit;

// The project's facts at the start of a Corvane survey with the WRC schema: the
// site form with the town and the weather, and lengths the WRC file can hold.
class wrcsiteinfo : public BaseInfo
{
    Q_OBJECT
public:
    explicit wrcsiteinfo(QWidget *parent = nullptr);

    void initialise() override;

public slots:
    void corvaneKeyTrapped() override;
    void escapeKeyTrapped() override;

private:
    P_LineEdit *m_projectName = nullptr;
};
