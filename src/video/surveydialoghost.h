#pragma once

#include "survey/ivideoscreen.h"

#include <QList>
#include <QStringList>

class KeypadDialog;
class QObject;
class QWidget;

// Opens the dialogs a survey asks the main screen for, one at a time, over the
// picture and clear of the status strip, and answers the note that stands open
// when a flow closes it with Return.
class SurveyDialogHost
{
public:
    // Dialogs are children of the screen's parent, so they cover the whole window.
    explicit SurveyDialogHost(QWidget *screen);

    // False for a kind this screen cannot show.
    bool open(IVideoScreen::overlay_menu_t type, const QString &title, const QStringList &list, QObject *receiver,
              const char *slot, bool flag);
    void closeAll();
    // Sends Return to the note standing open; false when there is none.
    bool acknowledgeOpenNote();
    // The dialog a survey has open, if any.
    QWidget *openDialog() const;

private:
    QWidget *parent() const;
    QList<KeypadDialog *> dialogs() const;
    void discardAnswered();
    void place(QWidget *dialog) const;

    QWidget *m_screen;
};
