#pragma once

#include "survey/forms/baseinfo.h"

class P_LineEdit;
class QLabel;

// The facts of a new WinCan project: its name, which names the project folder,
// its date and its ID, with the catalogue the survey will be coded to.
class WCProjectInfoV4 : public BaseInfo
{
    Q_OBJECT
public:
    explicit WCProjectInfoV4(QWidget *parent = nullptr);

    // A new project starts as "project", dated today.
    void initialise() override;

    // The catalogue line: the specification and its catalogue's version.
    static QString catalogueText();

public slots:
    // Saves without asking and has the flow make the project folder.
    void wincanKeyTrapped() override;
    // Leaving the project form leaves the WinCan survey.
    void escapeKeyTrapped() override;

    void validateDate();
    // Only what is safe in a folder name stays.
    void validateName();

private:
    P_LineEdit *m_project = nullptr;
    P_LineEdit *m_date = nullptr;
    P_LineEdit *m_id = nullptr;
    QLabel *m_catalogue = nullptr;
};
