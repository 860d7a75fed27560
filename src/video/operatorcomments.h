#pragma once

#include <QObject>
#include <QStringList>

class IVideoScreen;

// The operator's words on a survey: a comment after a snapshot or on request,
// written as observation lines, and the engineer's notes of a Corvane section,
// asked for four lines at a time and written to the section's notes file.
class OperatorComments : public QObject
{
    Q_OBJECT
public:
    OperatorComments(IVideoScreen *screen, QObject *parent = nullptr);

    // Asks for a one-line comment on what was just seen.
    void askForComment();
    // A new run of the notes dialog: the notes file starts afresh.
    void askForEngineersNotes();

public slots:
    void comment_key_press(int key, QString text);
    void siteSnapshot(QStringList lines);
    void addRec(int answer);

private:
    void openEngineersNotes(const QStringList &labels);

    IVideoScreen *m_screen;
    // Lines asked for so far in this run of the notes dialog, and lines written.
    int recCount = 0;
    int lineCount = 0;
};
