#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class IVideoScreen;
class WCParams;

// The questions of an ostra survey to the WRC schema, driven by catalogue codes:
// the start node type and water level when recording starts, the end node type
// when it stops, defect codes typed by letter key, and the continuous defects
// opened and closed during the section. Each code is entered by a WCParams.
class WrcChain : public QObject
{
    Q_OBJECT
public:
    explicit WrcChain(QObject *parent = nullptr);

    void setVideoScreen(IVideoScreen *video) { m_video = video; }
    // "Manhole(MH)", ...: the start node rows, translated.
    static QStringList nodeList();
    // End node codes and their rows, pair by pair.
    static QStringList endNodes();
    static QStringList endNodesList();

    void startNodeList();
    void showStartNode();
    void showEndQuestions();
    // A letter key while recording: asks for the rest of the code.
    void text_key(QChar letter);
    void getCode(QChar letter, bool blank);
    void showContDefs();
    void closeAllContDefs();

public slots:
    void handleStartNode(int row);
    void showWaterLevel();
    void menuStop(int row);
    void menuCode(int key, QString text);
    void CDSelected(int row);

signals:
    // "Cancel" in one of the chain's menus: back to the mode's own menu.
    void modeMenuWanted();

private:
    WCParams *runCode(const QString &code, int defCode);
    void showMenu(const QString &title, const QStringList &rows, const char *slot);

    IVideoScreen *m_video = nullptr;
    QString m_code;
    // The entry in hand; earlier ones stay children of the chain until it goes.
    WCParams *m_params = nullptr;
};
