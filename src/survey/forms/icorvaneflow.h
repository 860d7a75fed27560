#pragma once

#include <QString>

// What the information forms ask of the Corvane survey flow once the operator has
// answered a form. The flow registers itself when it is built; until then every
// step a form would hand over is logged and skipped, and the form goes on.
class ICorvaneFlow
{
public:
    enum Instruction { kStartmessage = 0, kNewSection = 1 };

    virtual ~ICorvaneFlow() = default;

    // The open project's folder, with a trailing "/".
    virtual QString prjDirectory() const = 0;
    virtual void setEnabled(bool enabled) = 0;
    virtual void setSectionOpen(bool open) = 0;
    // After the project form is saved: makes the project folder and opens a section.
    virtual void setProjectPath() = 0;
    // The project form was left without saving: the project is abandoned.
    virtual void cvStopped() = 0;
    // After the section form is saved.
    virtual void editSectionDatabase() = 0;
    virtual void showInstructions(int type) = 0;
    // The engineer's notes page has closed.
    virtual void endEngNotes() = 0;

    // nullptr unregisters.
    static void setCurrent(ICorvaneFlow *flow);
    // The registered flow, or nullptr after logging that `step` goes nowhere.
    static ICorvaneFlow *current(const char *step);
};
