#pragma once

#include "widgets/pipescreen.h"

#include <QString>

class P_TextEdit;
class QKeyEvent;
class QShowEvent;

// The engineer's free notes on a project, kept in the project folder as
// "EngineersNotes.txt" in Windows-1252 for the report. The page holds at most
// eight lines, wrapped by hand so the file breaks where the screen does; a key
// that would make a ninth line is undone.
class engineersNotes : public PipeScreen
{
    Q_OBJECT
public:
    static constexpr int kMaxLines = 8;
    static constexpr int kWrapColumn = 60;

    explicit engineersNotes(QWidget *parent = nullptr);

    static QString fileName();
    // Breaks every line longer than `column` at its last blank within the column,
    // which the break replaces, or at the column when there is none. `cursor` is a
    // position in `text` and is moved with the text it stands in.
    static QString wrapLines(const QString &text, int column, int *cursor);
    // The notes as the file stores them, or an empty array when no encoder exists.
    static QByteArray encode(const QString &text);
    static QString decode(const QByteArray &bytes);

signals:
    // The page is done with: the screen controller goes back to the live picture.
    void selectVideoScreen();
    void closed();

protected:
    void showEvent(QShowEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private slots:
    void rewrap();

private:
    void load();
    bool save();
    QString filePath() const;
    void leave();

    P_TextEdit *m_edit = nullptr;
    QString prjPath;
    // The project whose notes the page holds.
    QString m_notesOf;
    // The text as it last fitted the page, to go back to when a key overfills it.
    QString m_lastFitting;
    int m_lastFittingCursor = 0;
};
