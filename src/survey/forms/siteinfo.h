#pragma once

#include "survey/forms/baseinfo.h"

class P_LineEdit;

// The project's facts at the start of a Corvane survey.
class SiteInfo : public BaseInfo
{
    Q_OBJECT
public:
    explicit SiteInfo(QWidget *parent = nullptr);

    void initialise() override;

public slots:
    // Asks, then saves and has the flow make the project.
    void corvaneKeyTrapped() override;
    // Leaving the project form abandons the project.
    void escapeKeyTrapped() override;

private:
    P_LineEdit *m_siteName = nullptr;
};
