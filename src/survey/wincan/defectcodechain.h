#pragma once

#include <QChar>
#include <QObject>
#include <QString>

class IVideoScreen;
class WCParams;

// The catalogue-driven entries both code-based surveys share: a defect code
// typed by letter key, the water level after the start node, and the
// continuous defects opened and closed during a section. Each code is entered
// by a WCParams, which stays a child of the chain.
class DefectCodeChain : public QObject
{
    Q_OBJECT
public:
    static constexpr int kMaxCodeLength = 8;

    explicit DefectCodeChain(QObject *parent = nullptr);

    void setVideoScreen(IVideoScreen *video) { m_video = video; }
    // The text entry "Enter Defect Code", holding the letter unless blank.
    void getCode(QChar letter, bool blank);
    // The open continuous defects, to pick the one that ends here.
    void showContDefs();
    // Writes the closing observation of every open continuous defect.
    void closeAllContDefs();
    // Enters one code under a definition code of WCParams.
    WCParams *runCode(const QString &code, int defCode);

public slots:
    void showWaterLevel();
    void menuCode(int key, QString text);
    void CDSelected(int row);

signals:
    // "Cancel" in one of the chain's menus: back to the mode's own menu.
    void modeMenuWanted();

protected:
    // Tells the operator which defect was just closed.
    virtual void noteDefectEnded(const QString &group);
    void showMenu(const QString &title, const QStringList &rows, const char *slot);

    IVideoScreen *m_video = nullptr;

private:
    QString m_code;
    // The entry in hand; earlier ones stay children of the chain until it goes.
    WCParams *m_params = nullptr;
};
