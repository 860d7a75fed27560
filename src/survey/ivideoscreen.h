#pragma once

#include "storage/storagebase.h"
#include "survey/surveymanager.h"

#include <QString>
#include <QStringList>
#include <cstdint>

class QKeyEvent;
class QObject;

// The live video screen as the survey manager and the survey modes see it.
class IVideoScreen
{
public:
    enum error_t { kNone = 0, kWarning = 1, kCritical = 2 };
    enum overlay_menu_t {
        kOverlyMenu = 0,
        kOverlayDialogue = 1,
        kOverlayTextEntry = 3,
        kOverlayParamEntry = 4,
        kOverlayMessage = 5
    };

    virtual void record(QString path) = 0;
    virtual void streamRecord(QString ip, QString port) = 0;
    virtual void streamStop() = 0;
    virtual void play() = 0;
    virtual void pause() = 0;
    virtual void stop() = 0;
    virtual void hideVideo() = 0;
    virtual void showVideo() = 0;
    virtual void showError(IVideoScreen::error_t kind, QString text) = 0;
    virtual void setCameraPresent(bool present) = 0;
    virtual void setBatteryLevel(int level) = 0;
    virtual void setChargingState(int state) = 0;
    virtual void setBatteryTimeRemaining(int minutes) = 0;
    virtual void displayBacklight(int level) = 0;
    virtual void displayLampBrightness(int percent) = 0;
    virtual void setDiskRecordTimeRemaining(int minutes) = 0;
    virtual void saveJpeg(QString path, bool comment) = 0;
    virtual bool isPaused() = 0;
    virtual bool isRecording() = 0;
    virtual void createNewSurveyText() = 0;
    virtual void createEndHeader() = 0;
    virtual void setSaveToIndicator(StorageBase::StorageItem item) = 0;
    virtual void setLogo(SurveyManager::SurveyType type) = 0;
    virtual void triggerComment(int key, QString text) = 0;
    virtual void showCounterOverlay() = 0;
    virtual void showTextOverlay() = 0;
    virtual void showDateOverlay() = 0;
    virtual void showTimeOverlay() = 0;
    virtual void showCameraControl() = 0;
    virtual void dummyEscape() = 0;
    virtual void showGraphicsOverlay() = 0;
    virtual void showPageOverlay(int page) = 0;
    virtual void editPageOverlay() = 0;
    virtual void hidePageOverlay() = 0;
    virtual void showStatusBar(QString title, QStringList items) = 0;
    virtual void hideStatusBar() = 0;
    virtual void keyPressEvent(QKeyEvent *event) = 0;
    virtual void keyReleaseEvent(QKeyEvent *event) = 0;
    virtual uint64_t getVideoPosition() = 0;
    virtual float getCounter() = 0;
    virtual int getCounterState() = 0;
    virtual void setCounterState(int state) = 0;
    virtual void showMenu(QString title, QStringList rows, QObject *receiver, const char *slot, bool escape) = 0;
    virtual void showDialogue(QString title, QStringList rows, QObject *receiver, const char *slot) = 0;
    virtual void showMessage(QString title, QStringList lines, QObject *receiver, const char *slot) = 0;
    virtual void showTextEntry(QString title, QStringList prompt, QObject *receiver, const char *slot, bool mandatory) = 0;
    virtual void showParamEntry(QString title, QStringList prompt, QObject *receiver, const char *slot) = 0;
    virtual void createWinCanCodeText(QString code, QString text) = 0;
    virtual void setOstraWifiLogo(int state) = 0;
    virtual void commentRequest() = 0;
    virtual ~IVideoScreen() = default;
    virtual void setCounterTransparency(bool transparent) = 0;
    virtual bool getCounterTransparency() = 0;
    virtual void closeDialogue() = 0;
};
