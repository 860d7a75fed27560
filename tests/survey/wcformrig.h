#pragma once

#include "core/consolesettings.h"
#include "core/uikeys.h"
#include "storage/externalstorage.h"
#include "support/fakevideoscreen.h"
#include "support/testunit.h"
#include "survey/forms/wcprojectinfov4.h"
#include "survey/forms/wcsectioninfopage2.h"
#include "survey/forms/wcsectioninfov4.h"
#include "survey/surveydata.h"
#include "survey/surveymanager.h"
#include "survey/wincan/wccataloguemanager.h"
#include "survey/wincan/wincancontroller.h"
#include "widgets/consolestyle.h"
#include "widgets/graphics.h"
#include "widgets/p_combobox.h"
#include "widgets/p_lineedit.h"

#include <QApplication>
#include <QSettings>
#include <QStackedWidget>
#include <QtTest>

using Spec = WCCatalogueManager::Specification;

// What the WinCan form tests share: the three forms on a page stack of their
// own, shown as the main window shows a page (the page first, then its
// initialise()), with the WinCan flow, the survey data in the unit's settings
// file, a USB stick to save projects to, and the keypad.
class WCFormRig : public QObject
{
protected:
    TestUnit m_unit;
    FakeVideoScreen m_screen;
    QWidget m_window;
    QStackedWidget *m_stack = nullptr;
    QWidget *m_video = nullptr;
    WCProjectInfoV4 *m_project = nullptr;
    WCSectionInfoV4 *m_section = nullptr;
    wcsectioninfopage2 *m_page2 = nullptr;
    QString m_device;

    void show(QWidget *page)
    {
        QApplication::setActiveWindow(&m_window);
        m_stack->setCurrentWidget(page);
        if (auto *form = qobject_cast<BaseInfo *>(page))
            form->initialise();
        if (!page->isAncestorOf(QApplication::focusWidget()))
            page->setFocus();
    }
    QWidget *current() const { return m_stack->currentWidget(); }
    static SurveyData *data() { return SurveyManager::instance()->getSurveyData(); }
    QWidget *focus()
    {
        QApplication::setActiveWindow(&m_window);
        return QApplication::focusWidget();
    }
    void key(int code) { QTest::keyClick(focus(), Qt::Key(code)); }
    void type(const QString &text)
    {
        for (const QChar c : text) {
            if (c.unicode() < 128)
                QTest::keyClick(focus(), c.toLatin1());
            else
                QTest::sendKeyEvent(QTest::Click, focus(), Qt::Key_unknown, QString(c), Qt::NoModifier);
        }
    }
    template <typename Field>
    static Field *field(QWidget *form, const QString &tag)
    {
        for (Field *candidate : form->findChildren<Field *>()) {
            if (candidate->tag() == tag)
                return candidate;
        }
        return nullptr;
    }
    static QStringList tagsOf(QWidget *form)
    {
        QStringList tags;
        for (P_LineEdit *edit : form->findChildren<P_LineEdit *>())
            tags << edit->tag();
        for (P_ComboBox *box : form->findChildren<P_ComboBox *>())
            tags << box->tag();
        tags.removeAll(QString());
        tags.sort();
        return tags;
    }
    QString focusedTag()
    {
        if (auto *edit = qobject_cast<P_LineEdit *>(focus()))
            return edit->tag();
        if (auto *box = qobject_cast<P_ComboBox *>(focus()))
            return box->tag();
        return QString();
    }
    // What the unit's settings file holds, read from the disk.
    QString stored(const QString &key) const
    {
        QSettings file(m_unit.path(QStringLiteral("/home/pi/.config/Corvane/Ductline.conf")), QSettings::IniFormat);
        return file.value(key).toString();
    }
    static void setSpecification(Spec specification)
    {
        WCCatalogueManager::instance()->setSpecification(specification);
    }
    QWidget *formNamed(const QString &name) const
    {
        if (name == QLatin1String("project"))
            return m_project;
        return name == QLatin1String("section") ? static_cast<QWidget *>(m_section) : m_page2;
    }

    bool start()
    {
        if (!m_unit.isValid())
            return false;
        initialiseGraphics();
        ConsoleStyle::apply(*qApp);
        SurveyManager::instance(&m_screen)->setType(SurveyManager::kSurveyType_WINCAN);
        SurveyManager::instance()->registerController(SurveyManager::kSurveyType_WINCAN,
                                                      WinCanController::instance());
        m_device = m_unit.path(QStringLiteral("/media/usb1"));
        QDir().mkpath(m_device);
        ExternalStorage::instance()->handle_mount(QStringLiteral("USB1"), m_device);
        ExternalStorage::instance()->update();

        m_stack = new QStackedWidget(&m_window);
        m_video = new QWidget(m_stack);
        m_project = new WCProjectInfoV4(m_stack);
        m_section = new WCSectionInfoV4(m_stack);
        m_page2 = new wcsectioninfopage2(m_stack);
        for (QWidget *page : {m_video, static_cast<QWidget *>(m_project), static_cast<QWidget *>(m_section),
                              static_cast<QWidget *>(m_page2)})
            m_stack->addWidget(page);
        for (BaseInfo *form : {static_cast<BaseInfo *>(m_project), static_cast<BaseInfo *>(m_section),
                               static_cast<BaseInfo *>(m_page2)}) {
            connect(form, &BaseInfo::selectVideoScreen, this, [this] { show(m_video); });
            connect(form, &BaseInfo::selectWCSectionInfoScreen, this, [this] { show(m_section); });
            connect(form, &BaseInfo::selectWCSectionInfoScreen2, this, [this] { show(m_page2); });
        }
        connect(WinCanController::instance(), &WinCanController::selectWCProjectInfoScreen, this,
                [this] { show(m_project); });
        // The flow asks for the section form once the project is made.
        connect(WinCanController::instance(), &WinCanController::selectWCSectionInfoScreen, this,
                [this] { show(m_section); });
        m_window.setGeometry(0, 0, 800, 600);
        m_stack->setGeometry(m_window.rect());
        m_window.show();
        QApplication::setActiveWindow(&m_window);
        return QTest::qWaitForWindowActive(&m_window);
    }

    // Every test starts in the WinCan mode on MSCC-5 with no survey data, on the live picture.
    void reset()
    {
        // Leaving the project form leaves the mode, and with it the WinCan data.
        SurveyManager::instance()->setType(SurveyManager::kSurveyType_WINCAN);
        setSpecification(WCCatalogueManager::kWCCat_MSCC_5);
        data()->clear();
        show(m_video);
    }
};
