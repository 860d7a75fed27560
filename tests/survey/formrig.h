#pragma once

// What the form tests share: the console's real main window, controller and
// Corvane flow on a fresh simulated unit with a USB stick to save to, the fake
// live screen that notes what the flow shows on it, an operator who answers the
// save questions, and the keypad.
#include "app/controller.h"
#include "app/mainwindow.h"
#include "widgets/pipescreen.h"
#include "core/uikeys.h"
#include "support/boxanswer.h"
#include "support/testunit.h"
#include "storage/externalstorage.h"
#include "support/fakevideoscreen.h"
#include "survey/corvane/corvanecontroller.h"
#include "survey/surveydata.h"
#include "survey/surveymanager.h"
#include "widgets/consolestyle.h"
#include "widgets/graphics.h"
#include "widgets/hbimessagebox.h"
#include "widgets/p_combobox.h"
#include "widgets/p_lineedit.h"

#include <QApplication>
#include <QDir>
#include <QtTest>

class FormRig
{
public:
    TestUnit unit;
    FakeVideoScreen screen;
    MainWindow *window = nullptr;
    CorvaneController *ostra = nullptr;

    bool start()
    {
        if (!unit.isValid())
            return false;
        initialiseGraphics();
        ConsoleStyle::apply(*qApp);
        SurveyManager::instance(&screen);
        ostra = CorvaneController::instance();
        window = new MainWindow;
        Controller::create(window, window);
        const QString device = unit.path(QStringLiteral("/media/usb1"));
        QDir().mkpath(device);
        ExternalStorage::instance()->handle_mount(QStringLiteral("USB1"), device);
        ExternalStorage::instance()->update();
        window->show();
        QApplication::setActiveWindow(window);
        return QTest::qWaitForWindowActive(window)
            && QTest::qWaitFor([this] { return window->screen() == Controller::kScreenLogin; }, 5000);
    }

    void stop() { delete window; }

    // The way the flow shows a form: from the live picture.
    PipeScreen *show(int screen)
    {
        // A closed question box hands the activation back only when the window system gets round to it.
        QApplication::setActiveWindow(window);
        Controller::instance()->selectVideoScreen();
        Controller::instance()->pushScreen(screen);
        this->screen.calls.clear();
        return window->page(screen);
    }

    static SurveyData *data() { return SurveyManager::instance()->getSurveyData(); }

    // A keypad key: pressed and released on whatever has the focus. The window is
    // made active first: offscreen, a closed question box does not hand it back.
    void key(int code) { QTest::keyClick(focus(), Qt::Key(code)); }
    void type(const QString &text) { QTest::keyClicks(focus(), text); }
    QWidget *focus()
    {
        QApplication::setActiveWindow(window);
        return QApplication::focusWidget();
    }

    template <typename Field>
    static Field *field(PipeScreen *form, const QString &tag)
    {
        for (Field *candidate : form->findChildren<Field *>()) {
            if (candidate->tag() == tag)
                return candidate;
        }
        return nullptr;
    }

    QString focusedTag()
    {
        if (auto *edit = qobject_cast<P_LineEdit *>(focus()))
            return edit->tag();
        if (auto *box = qobject_cast<P_ComboBox *>(focus()))
            return box->tag();
        return QString();
    }
};
