#pragma once

#include "survey/forms/baseinfo.h"

class P_LineEdit;

// The facts of one pipe section in the WRC schema's terms, asked before it is
// recorded. Every list starts blank: a fact not known is left out of the WRC file.
class wrcruninfo : public BaseInfo
{
    Q_OBJECT
public:
    explicit wrcruninfo(QWidget *parent = nullptr);

    // The materials the WRC schema knows, with the code of brick as each list has it.
    static QStringList materials(const QString &brick);

    // Start and end are blanked: every new section has its own nodes.
    void initialise() override;

public slots:
    void corvaneKeyTrapped() override;
    void escapeKeyTrapped() override;

private:
    P_LineEdit *m_start = nullptr;
    P_LineEdit *m_end = nullptr;
    P_LineEdit *m_date = nullptr;
    P_LineEdit *m_time = nullptr;
    P_LineEdit *m_size = nullptr;
};
