#pragma once

#include "survey/ivideoscreen.h"

#include <QStringList>

#include <functional>

// Stands in for the live video screen: answers its questions from fields the
// test sets and writes every call it receives into `calls`, e.g. "setBatteryLevel 50".
class FakeVideoScreen : public IVideoScreen
{
public:
    bool recording = false;
    bool paused = false;
    float counter = 0.0f;
    int counterState = 0;
    bool counterTransparent = false;
    QStringList calls;
    // What the real screen does besides taking the picture (it writes the
    // snapshot's observation line), for tests that need it.
    std::function<void(const QString &path, bool comment)> onSaveJpeg;

    void record(QString path) override { log("record", path); }
    void streamRecord(QString ip, QString port) override { log("streamRecord", ip + QLatin1Char(' ') + port); }
    void streamStop() override { log("streamStop"); }
    void play() override { log("play"); }
    void pause() override { log("pause"); }
    void stop() override { log("stop"); }
    void hideVideo() override { log("hideVideo"); }
    void showVideo() override { log("showVideo"); }
    void showError(IVideoScreen::error_t kind, QString text) override { log("showError", QString::number(kind) + QLatin1Char(' ') + text); }
    void setCameraPresent(bool present) override { log("setCameraPresent", present); }
    void setBatteryLevel(int level) override { log("setBatteryLevel", level); }
    void setChargingState(int state) override { log("setChargingState", state); }
    void setBatteryTimeRemaining(int minutes) override { log("setBatteryTimeRemaining", minutes); }
    void displayBacklight(int level) override { log("displayBacklight", level); }
    void displayLampBrightness(int percent) override { log("displayLampBrightness", percent); }
    void setDiskRecordTimeRemaining(int minutes) override { log("setDiskRecordTimeRemaining", minutes); }
    void saveJpeg(QString path, bool comment) override
    {
        log("saveJpeg", path + QLatin1Char(' ') + QString::number(comment));
        if (onSaveJpeg)
            onSaveJpeg(path, comment);
    }
    bool isPaused() override { return paused; }
    bool isRecording() override { return recording; }
    void createNewSurveyText() override { log("createNewSurveyText"); }
    void createEndHeader() override { log("createEndHeader"); }
    void setSaveToIndicator(StorageBase::StorageItem item) override { log("setSaveToIndicator", item); }
    void setLogo(SurveyManager::SurveyType type) override { log("setLogo", type); }
    void triggerComment(int key, QString text) override { log("triggerComment", QString::number(key) + QLatin1Char(' ') + text); }
    void showCounterOverlay() override { log("showCounterOverlay"); }
    void showTextOverlay() override { log("showTextOverlay"); }
    void showDateOverlay() override { log("showDateOverlay"); }
    void showTimeOverlay() override { log("showTimeOverlay"); }
    void showCameraControl() override { log("showCameraControl"); }
    void dummyEscape() override { log("dummyEscape"); }
    void showGraphicsOverlay() override { log("showGraphicsOverlay"); }
    void showPageOverlay(int page) override { log("showPageOverlay", page); }
    void editPageOverlay() override { log("editPageOverlay"); }
    void hidePageOverlay() override { log("hidePageOverlay"); }
    void showStatusBar(QString title, QStringList items) override { log("showStatusBar", title + QLatin1Char('|') + items.join(QLatin1Char('|'))); }
    void hideStatusBar() override { log("hideStatusBar"); }
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    uint64_t getVideoPosition() override { return 0; }
    float getCounter() override { return counter; }
    int getCounterState() override { return counterState; }
    void setCounterState(int state) override { log("setCounterState", state); counterState = state; }
    void showMenu(QString title, QStringList rows, QObject *, const char *, bool) override { log("showMenu", title + QLatin1Char('|') + rows.join(QLatin1Char('|'))); }
    void showDialogue(QString title, QStringList rows, QObject *, const char *) override { log("showDialogue", title + QLatin1Char('|') + rows.join(QLatin1Char('|'))); }
    void showMessage(QString title, QStringList lines, QObject *, const char *) override { log("showMessage", title + QLatin1Char('|') + lines.join(QLatin1Char('|'))); }
    void showTextEntry(QString title, QStringList prompt, QObject *, const char *, bool) override { log("showTextEntry", title + QLatin1Char('|') + prompt.join(QLatin1Char('|'))); }
    void showParamEntry(QString title, QStringList prompt, QObject *, const char *) override { log("showParamEntry", title + QLatin1Char('|') + prompt.join(QLatin1Char('|'))); }
    void createWinCanCodeText(QString code, QString text) override { log("createWinCanCodeText", code + QLatin1Char(' ') + text); }
    void setOstraWifiLogo(int state) override { log("setOstraWifiLogo", state); }
    void commentRequest() override { log("commentRequest"); }
    void setCounterTransparency(bool transparent) override { counterTransparent = transparent; log("setCounterTransparency", transparent); }
    bool getCounterTransparency() override { return counterTransparent; }
    void closeDialogue() override { log("closeDialogue"); }

private:
    void log(const char *name) { calls << QString::fromLatin1(name); }
    void log(const char *name, const QString &arg) { calls << QString::fromLatin1(name) + QLatin1Char(' ') + arg; }
    void log(const char *name, int arg) { log(name, QString::number(arg)); }
};
