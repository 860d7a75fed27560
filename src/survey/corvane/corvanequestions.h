#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class CorvaneController;
class IVideoScreen;

// The standard questions of a recorded ostra section: who surveyed, the start
// node, depth, material, size, water level and flow at the start; the end node
// and the pipe's usage at the end. Each answer comes back to one of the slots
// below, as (row) from a menu or (key, text) from a text entry, key 0 meaning
// Cancel or Escape, which skips the store and goes on (the start node asks again).
// The answers go to the section's file; the live value is kept under "tag".
class CorvaneQuestions : public QObject
{
    Q_OBJECT
public:
    explicit CorvaneQuestions(CorvaneController *owner);

    void askStartQuestions();
    void askEndQuestions();

public slots:
    void handleSurveyedBy(int key, QString text);
    void handleStartNode(int key, QString text);
    void handleInvertDepth(int key, QString text);
    void handleMaterial(int row);
    void handleOtherMaterial(int key, QString text);
    void handlePipeSize(int key, QString text);
    void handleWaterLevel(int key, QString text);
    void handleFlowDirection(int row);

    void handleEndNode(int key, QString text);
    void handleUsage(int row);
    void handleOtherUsage(int key, QString text);

signals:
    // The last start question is answered: the survey may begin.
    void startAnswered();
    // The end node is given: the manager takes the section's closing picture.
    void goodStop();
    // The last end question is answered: the section ends.
    void endAnswered();

private:
    IVideoScreen *video() const;
    void showTextEntry(const QString &title, const char *slot, bool mandatory = false);
    void showMenu(const QString &title, const QStringList &rows, const char *slot);
    void adjustSectionInformation(const QString &key, const QString &value);
    void setStatusItem(int item, const QString &text);
    void askInvertDepth();
    void askPipeSize();
    void askUsage();

    CorvaneController *m_owner = nullptr;
    // What the status bar shows during a recording: the node and the water level.
    QStringList m_statusItems{QString(), QString()};
};
