#pragma once

#include "survey/forms/baseinfo.h"

class P_ComboBox;
class P_LineEdit;

// The first page of a WinCan section's facts: nodes, depths, when, who, where and
// the pipe. Its lists and two of its place fields follow the coding specification.
class WCSectionInfoV4 : public BaseInfo
{
    Q_OBJECT
public:
    explicit WCSectionInfoV4(QWidget *parent = nullptr);

    // Lists and tags for the current specification, today's date, the time now,
    // the size's unit, and the focus on the start node.
    void initialise() override;

public slots:
    // Checks and saves this page and turns to the second.
    void wincanKeyTrapped() override;
    void nextInfo() override;
    void previousInfo() override;
    // Leaving the section form leaves the section closed.
    void escapeKeyTrapped() override;

    void validateDate();
    void validateTime();
    void validateFloats();

private:
    void applySpecification();
    void turnPage();

    P_LineEdit *m_startNode = nullptr;
    P_LineEdit *m_startDepth = nullptr;
    P_LineEdit *m_endDepth = nullptr;
    P_LineEdit *m_date = nullptr;
    P_LineEdit *m_time = nullptr;
    P_LineEdit *m_size = nullptr;
    P_LineEdit *m_town = nullptr;
    P_LineEdit *m_district = nullptr;
    P_ComboBox *m_material = nullptr;
    P_ComboBox *m_purpose = nullptr;
};
