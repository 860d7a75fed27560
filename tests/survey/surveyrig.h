#pragma once

// What the survey tests share: a simulated unit with a USB stick to record to,
// the fake screen, the survey manager on it, and an operator who answers the
// console's blocking boxes.
#include "core/consolesettings.h"
#include "storage/externalstorage.h"
#include "support/fakevideoscreen.h"
#include "support/testunit.h"
#include "survey/observationline.h"
#include "survey/surveycontroller.h"
#include "survey/surveymanager.h"
#include "widgets/hbimessagebox.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QTimer>
#include <QtTest>

// Presses Return on every HBIMessageBox that shows, after typing `passcode`
// into its line edit if it has one, and keeps what each box said.
class BoxAnswerer
{
public:
    QStringList texts;
    QStringList informativeTexts;
    QString passcode;

    BoxAnswerer()
    {
        m_timer.setInterval(20);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { answerShowingBoxes(); });
        m_timer.start();
    }

    void clear()
    {
        texts.clear();
        informativeTexts.clear();
    }

private:
    void answerShowingBoxes()
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            auto *box = qobject_cast<HBIMessageBox *>(widget);
            if (!box || !box->isVisible())
                continue;
            texts << box->text();
            informativeTexts << box->informativeText();
            if (QLineEdit *edit = box->findChild<QLineEdit *>())
                QTest::keyClicks(edit, passcode);
            QTest::keyClick(box, Qt::Key_Return);
        }
    }

    QTimer m_timer;
};

// A project mode as the Corvane and WinCan controllers will be: a project
// directory, a section that is open or not, and its own names.
class ProjectModeDouble : public SurveyController
{
public:
    QString videoPath = QStringLiteral("unset");

    void setProject(const QString &directory) { m_prj_directory = directory; }
    int prepareDirectory() override
    {
        m_directory = m_prj_directory + QStringLiteral("section_1");
        return QDir().mkpath(m_directory) ? 0 : 1;
    }
    QString mpg4Path() override { return videoPath; }
    void button_push() override { ++pushes; }
    int pushes = 0;

protected:
    QString dbExt() const override { return QStringLiteral(".sdb"); }
};

class SurveyRig
{
public:
    TestUnit unit;
    FakeVideoScreen screen;
    SurveyManager *manager = nullptr;
    QString device;

    SurveyRig()
    {
        if (!unit.isValid())
            return;
        device = unit.path(QStringLiteral("/media/usb1"));
        QDir().mkpath(device);
        manager = SurveyManager::instance(&screen);
    }

    void plugStorage()
    {
        ExternalStorage::instance()->handle_mount(QStringLiteral("USB1"), device);
        ExternalStorage::instance()->update();
    }

    void pullStorage()
    {
        ExternalStorage::instance()->setSaveActive(false);
        ExternalStorage::instance()->handle_unmount(device);
        ExternalStorage::instance()->update();
    }

    // Back to a basic survey at rest, with a fresh settings file, call list and device.
    void resetSurvey()
    {
        QDir(device + QStringLiteral("/corvane")).removeRecursively();
        ConsoleSettings settings;
        settings.clear();
        settings.sync();
        screen.calls.clear();
        screen.recording = false;
        screen.onSaveJpeg = nullptr;
        manager->setType(SurveyManager::kSurveyType_BASIC);
        manager->cleanUp();
        manager->reset();
        screen.calls.clear();
    }

    // The screen calls of the survey, without the storage indicator's updates
    // that arrive whenever the minutes left are measured.
    QStringList surveyCalls() const
    {
        QStringList calls;
        for (const QString &call : screen.calls) {
            if (!call.startsWith(QLatin1String("setDiskRecordTimeRemaining"))
                && !call.startsWith(QLatin1String("setSaveToIndicator")))
                calls << call;
        }
        return calls;
    }

    static QStringList readLines(const QString &path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QString::fromUtf8(file.readAll()).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    }
};
