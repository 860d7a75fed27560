#pragma once

#include "survey/forms/baseinfo.h"

class P_LineEdit;

// The facts of one pipe section, asked before it is recorded.
class RunInfo : public BaseInfo
{
    Q_OBJECT
public:
    explicit RunInfo(QWidget *parent = nullptr);

    void initialise() override;

public slots:
    void corvaneKeyTrapped() override;
    // Leaving the section form leaves the section closed.
    void escapeKeyTrapped() override;

private:
    P_LineEdit *m_start = nullptr;
    P_LineEdit *m_date = nullptr;
    P_LineEdit *m_time = nullptr;
    P_LineEdit *m_size = nullptr;
};
