#include "video/videokeys.h"

#include "core/uikeys.h"
#include "survey/surveymanager.h"
#include "video/overlay.h"
#include "video/pageoverlays.h"
#include "video/picturecontrols.h"
#include "video/surveydialoghost.h"
#include "video/video.h"

#include <QDebug>
#include <QKeyEvent>

namespace {
SurveyManager *survey()
{
    return SurveyManager::instance();
}

bool isDigitKey(int key)
{
    return key >= Qt::Key_0 && key <= Qt::Key_9;
}

bool isLetterKey(int key)
{
    return (key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Ui::Key_a && key <= Ui::Key_z);
}
} // namespace

VideoKeys::VideoKeys(Video *video)
    : m_video(video)
{
}

bool VideoKeys::press(QKeyEvent *event)
{
    const int key = event->key();
    if (event->isAutoRepeat() && key != Ui::Key_Survey && key != Ui::Key_ZeroCounter)
        return true;
    bool handled = false;
    // Letters also name a defect code in a project survey, and still act below.
    if (m_video->inProjectSurvey() && isLetterKey(key))
        survey()->handleText(QChar(key));
    if (m_video->m_pages->editPage() != 0) {
        m_video->m_overlay->pageAddChar(m_video->m_pages->editPage(), key);
        handled = true;
    }
    if (m_video->m_pictureControls->isActive())
        handled = handlePictureControlPress(key) || handled;

    if (key == Ui::Key_MediaStop && m_video->isRecording()) {
        emit m_video->stopRecord();
        handled = true;
    } else if ((key == Qt::Key_Return || key == Qt::Key_Enter) && m_video->m_dialogs->acknowledgeOpenNote()) {
        handled = true;
    } else if (key == Ui::Key_MediaPause || key == Ui::Key_MediaPlay) {
        m_video->pause();
        handled = true;
    } else if (key == Ui::Key_ZeroCounter) {
        handled = handleZeroCounterPress(event);
    }
    return handled;
}

bool VideoKeys::handlePictureControlPress(int key)
{
    switch (key) {
    case Qt::Key_Left:
        m_video->m_pictureControls->selectPrevious();
        return true;
    case Qt::Key_Right:
        m_video->m_pictureControls->selectNext();
        return true;
    case Qt::Key_Up:
        m_video->incrementCameraControl(PictureControls::kStep);
        return true;
    case Qt::Key_Down:
        m_video->decrementCameraControl(PictureControls::kStep);
        return true;
    default:
        return false;
    }
}

// The counter is zeroed only by holding the key: a tap never loses a distance.
bool VideoKeys::handleZeroCounterPress(QKeyEvent *event)
{
    if (m_zeroCounterHold.press(event)) {
        qInfo() << "Reset meterage counter";
        survey()->handleAction(SurveyManager::kActionResetCounter, 0);
    }
    return true;
}

bool VideoKeys::release(QKeyEvent *event)
{
    const int key = event->key();
    bool handled = event->modifiers() == Qt::NoModifier && handlePlainRelease(key);
    if (isDigitKey(key) && m_video->m_pages->editPage() == 0) {
        survey()->handleAction(SurveyManager::kActionPage, key - Qt::Key_0);
        handled = true;
    } else if (key == Qt::Key_Enter) {
        m_video->closePictureControls(true);
        if (m_video->m_pages->activePage() != 0)
            m_video->m_overlay->pageAddChar(m_video->m_pages->activePage(), key);
        handled = true;
    }
    return handled;
}

bool VideoKeys::handlePlainRelease(int key)
{
    switch (key) {
    case Ui::Key_WinCan:
        survey()->handleAction(SurveyManager::kActionWincan, 0);
        return true;
    case Qt::Key_Escape:
        if (!m_video->m_pictureControls->isActive())
            return false;
        m_video->closePictureControls(false);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!m_video->m_pictureControls->isActive())
            return false;
        m_video->closePictureControls(true);
        return true;
    case Ui::Key_GraphicMode:
        if (m_video->m_pages->isShowing())
            return false;
        survey()->handleAction(SurveyManager::kActionGraphics, 0);
        return true;
    case Ui::Key_Report:
        emit m_video->reportScreenRequested();
        return true;
    case Ui::Key_TextMode:
        if (m_video->m_pages->currentPage() == 0)
            return false;
        survey()->handleAction(SurveyManager::kActionText, 0);
        return true;
    case Ui::Key_CounterMode:
        if (m_video->m_pages->isShowing())
            return false;
        m_video->showCounterOverlay();
        return true;
    case Ui::Key_Settings:
        emit m_video->settingsScreenRequested(-1);
        return true;
    case Ui::Key_F1:
        emit m_video->settingsScreenRequested(Video::kStatusSettingsTab);
        return true;
    default:
        return false;
    }
}
