#pragma once

#include "survey/forms/baseinfo.h"

class P_ComboBox;
class P_LineEdit;

// The second page of a WinCan section's facts: the pipe's setting, lining, use
// and lengths. Saving it completes the section's facts and opens the section.
class wcsectioninfopage2 : public BaseInfo
{
    Q_OBJECT
public:
    explicit wcsectioninfopage2(QWidget *parent = nullptr);

    // Location, weather and lining lists for the current specification.
    void initialise() override;

public slots:
    // Asks, then saves this page and opens the section for recording.
    void wincanKeyTrapped() override;
    // Both page keys save this page and turn back to the first.
    void nextInfo() override;
    void previousInfo() override;
    void escapeKeyTrapped() override;

    void validateFloats();

private:
    void applySpecification();
    void turnPage();

    P_LineEdit *m_drainArea = nullptr;
    P_LineEdit *m_expectedLength = nullptr;
    P_LineEdit *m_unitLength = nullptr;
    P_ComboBox *m_location = nullptr;
    P_ComboBox *m_weather = nullptr;
    P_ComboBox *m_liningMaterial = nullptr;
};
