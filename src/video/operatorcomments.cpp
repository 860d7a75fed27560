#include "video/operatorcomments.h"

#include "survey/ivideoscreen.h"
#include "survey/surveymanager.h"
#include "widgets/textentrydialog.h"

#include <QDebug>
#include <QFile>

namespace {
const QString kEngineersNotesFile = QStringLiteral("EngineersNotes.txt");

SurveyManager *survey()
{
    return SurveyManager::instance();
}
} // namespace

OperatorComments::OperatorComments(IVideoScreen *screen, QObject *parent)
    : QObject(parent)
    , m_screen(screen)
{
}

void OperatorComments::askForComment()
{
    m_screen->showTextEntry(tr("\tPlease add a comment\t"), {QString()}, this, SLOT(comment_key_press(int, QString)),
                            false);
}

void OperatorComments::askForEngineersNotes()
{
    recCount = 0;
    lineCount = 0;
    openEngineersNotes({QStringLiteral("* 1"), QStringLiteral("* 2"), QStringLiteral("* 3"), QStringLiteral("* 4")});
}

void OperatorComments::openEngineersNotes(const QStringList &labels)
{
    m_screen->showParamEntry(tr("Please add your engineer's notes"), labels, this, SLOT(siteSnapshot(QStringList)));
}

void OperatorComments::comment_key_press(int key, QString text)
{
    if (key == TextEntryDialog::kAccepted)
        survey()->appendObservation(0, 0.0f, QStringLiteral("BOTH"), QString());
    if (key == TextEntryDialog::kAccepted || key == TextEntryDialog::kAcceptedTextOnly)
        survey()->appendObservation(0, m_screen->getCounter(), QStringLiteral("TEXT"), text);
}

void OperatorComments::siteSnapshot(QStringList lines)
{
    const QString directory = survey()->getDirectory();
    QFile notes(directory + kEngineersNotesFile);
    // A new run of the notes dialog starts the file afresh.
    if (!directory.isEmpty() && recCount == 0 && notes.exists())
        notes.remove();
    // Without a project the notes have no home; never drop them in the working directory.
    if (directory.isEmpty() || !notes.open(QIODevice::Append)) {
        qWarning().noquote() << "Engineer's notes not saved, cannot open" << notes.fileName();
    } else {
        for (const QString &line : lines) {
            if (line.isEmpty())
                continue;
            ++lineCount;
            notes.write(QByteArray::number(lineCount) + ")" + line.toUtf8() + "\n");
        }
    }
    recCount = lineCount;
    m_screen->showMenu(tr("Would you Like to add more engineer's notes?"), {tr("Yes"), tr("No")}, this, SLOT(addRec(int)),
                       false);
}

void OperatorComments::addRec(int answer)
{
    if (answer != 0)
        return;
    QStringList labels;
    for (int i = 0; i < 4; ++i)
        labels << QStringLiteral("*%1").arg(++recCount);
    openEngineersNotes(labels);
}
