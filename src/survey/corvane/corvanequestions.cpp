#include "survey/corvane/corvanequestions.h"

#include "survey/corvane/corvanecontroller.h"
#include "survey/corvane/corvanesurveyfiles.h"
#include "survey/ivideoscreen.h"

#include <QDebug>
#include <QFileInfo>

// The texts keep the mode's translation context.
namespace {

// The last row of these two menus asks for the answer as text.
constexpr int kOtherMaterialRow = 7;
constexpr int kOtherUsageRow = 7;

QStringList materialRows()
{
    return {CorvaneController::tr("Cancel"),         CorvaneController::tr("Vitrified Clay (VC)"),
            CorvaneController::tr("Polyvinyl Chloride (PVC)"), CorvaneController::tr("Cast Iron (CI)"),
            CorvaneController::tr("Concrete (CO)"),  CorvaneController::tr("Brick (BR)"),
            CorvaneController::tr("Pitch Fibre (PF)"), CorvaneController::tr("Other (Z)")};
}

QStringList directionRows()
{
    return {CorvaneController::tr("Upstream (U)"), CorvaneController::tr("Downstream (D)"),
            CorvaneController::tr("Unknown (Z)")};
}

QStringList usageRows()
{
    return {CorvaneController::tr("Cancel"),         CorvaneController::tr("Combined"),
            CorvaneController::tr("Foul"),           CorvaneController::tr("Storm"),
            CorvaneController::tr("Trade Effulent"), CorvaneController::tr("Culverted Watercourse"),
            CorvaneController::tr("Subsoil or Field Drainage"), CorvaneController::tr("Other")};
}

} // namespace

CorvaneQuestions::CorvaneQuestions(CorvaneController *owner) : QObject(owner), m_owner(owner) {}

IVideoScreen *CorvaneQuestions::video() const
{
    return m_owner->videoScreen();
}

void CorvaneQuestions::showTextEntry(const QString &title, const char *slot, bool mandatory)
{
    if (IVideoScreen *screen = video())
        screen->showTextEntry(title, {QString(), CorvaneController::tr("Press OK to Accept")}, this, slot, mandatory);
}

void CorvaneQuestions::showMenu(const QString &title, const QStringList &rows, const char *slot)
{
    if (IVideoScreen *screen = video())
        screen->showMenu(title, rows, this, slot, false);
}

// The live value goes under the literal key "tag", not under `key`: the answers
// of a recording change the section file only, and the next section starts from
// the forms' values again. Operators rely on that.
void CorvaneQuestions::adjustSectionInformation(const QString &key, const QString &value)
{
    const QString section = m_owner->directory();
    if (QFileInfo(section).isDir())
        CorvaneSurveyFiles::writeSectionValue(section, key, value);
    else
        qInfo().noquote() << "No section folder for" << key << "=" << value;
    m_owner->surveyData()->set(QStringLiteral("tag"), value);
}

void CorvaneQuestions::setStatusItem(int item, const QString &text)
{
    if (item < 0 || item >= m_statusItems.size())
        return;
    m_statusItems[item] = text;
    QStringList shown;
    for (const QString &entry : qAsConst(m_statusItems)) {
        if (!entry.isEmpty())
            shown << entry;
    }
    if (IVideoScreen *screen = video())
        screen->showStatusBar(QString(), shown);
}

// ---- Start questions ---------------------------------------------------------------

void CorvaneQuestions::askStartQuestions()
{
    if (IVideoScreen *screen = video())
        screen->dummyEscape();
    m_statusItems = QStringList{QString(), QString()};
    showTextEntry(CorvaneController::tr("Surveyed By?\t\t"), SLOT(handleSurveyedBy(int,QString)));
}

void CorvaneQuestions::handleSurveyedBy(int key, QString text)
{
    if (key != 0)
        adjustSectionInformation(QStringLiteral("SEngineer"), text);
    showTextEntry(CorvaneController::tr("Enter Start Node Information (Mandatory)"),
                  SLOT(handleStartNode(int,QString)), true);
}

void CorvaneQuestions::handleStartNode(int key, QString text)
{
    // The section is not filed without its start node: the question stays.
    if (key == 0 || text.trimmed().isEmpty()) {
        showTextEntry(CorvaneController::tr("Enter Start Node Information (Mandatory)"),
                      SLOT(handleStartNode(int,QString)), true);
        return;
    }
    adjustSectionInformation(QStringLiteral("Start"), text);
    setStatusItem(0, CorvaneController::tr("Start Point: ") + text);
    askInvertDepth();
}

void CorvaneQuestions::askInvertDepth()
{
    showTextEntry(CorvaneController::tr("Enter Start Node Invert Depth"), SLOT(handleInvertDepth(int,QString)));
}

void CorvaneQuestions::handleInvertDepth(int key, QString text)
{
    if (key != 0)
        adjustSectionInformation(QStringLiteral("Invert"), text);
    showMenu(CorvaneController::tr("Enter Pipe Material"), materialRows(), SLOT(handleMaterial(int)));
}

void CorvaneQuestions::handleMaterial(int row)
{
    if (row == kOtherMaterialRow) {
        showTextEntry(CorvaneController::tr("Enter Pipe Material"), SLOT(handleOtherMaterial(int,QString)));
        return;
    }
    if (row > 0 && row < kOtherMaterialRow)
        adjustSectionInformation(QStringLiteral("Material"), materialRows().at(row));
    askPipeSize();
}

void CorvaneQuestions::handleOtherMaterial(int key, QString text)
{
    if (key != 0)
        adjustSectionInformation(QStringLiteral("Material"), text);
    askPipeSize();
}

void CorvaneQuestions::askPipeSize()
{
    showTextEntry(CorvaneController::tr("Enter Pipe Size"), SLOT(handlePipeSize(int,QString)));
}

void CorvaneQuestions::handlePipeSize(int key, QString text)
{
    if (key != 0)
        adjustSectionInformation(QStringLiteral("Size"), text);
    showTextEntry(CorvaneController::tr("Enter Water Level %"), SLOT(handleWaterLevel(int,QString)));
}

// The water level is for the picture only; no file keeps it.
void CorvaneQuestions::handleWaterLevel(int key, QString text)
{
    if (key != 0)
        setStatusItem(1, CorvaneController::tr("Water Level: ") + text + QLatin1Char('%'));
    showMenu(CorvaneController::tr("Enter Flow Direction"), directionRows(), SLOT(handleFlowDirection(int)));
}

void CorvaneQuestions::handleFlowDirection(int row)
{
    const QStringList directions = directionRows();
    if (row >= 0 && row < directions.size())
        adjustSectionInformation(QStringLiteral("Direction"), directions.at(row));
    emit startAnswered();
}

// ---- End questions -------------------------------------------------------------------

void CorvaneQuestions::askEndQuestions()
{
    showTextEntry(CorvaneController::tr("Enter End Node Information (Mandatory)"), SLOT(handleEndNode(int,QString)),
                  true);
}

// Unlike the start node, the end node may be skipped: a recording must be able to end.
void CorvaneQuestions::handleEndNode(int key, QString text)
{
    if (key != 0 && !text.trimmed().isEmpty()) {
        adjustSectionInformation(QStringLiteral("End"), text);
        setStatusItem(0, CorvaneController::tr("End Point: ") + text);
        emit goodStop();
    }
    askUsage();
}

void CorvaneQuestions::askUsage()
{
    showMenu(CorvaneController::tr("Please enter the pipe's usage"), usageRows(), SLOT(handleUsage(int)));
}

void CorvaneQuestions::handleUsage(int row)
{
    if (row == kOtherUsageRow) {
        showTextEntry(CorvaneController::tr("Please enter the pipe's usage"), SLOT(handleOtherUsage(int,QString)));
        return;
    }
    // "Cancel" is filed as the usage like any other row.
    if (row >= 0 && row < kOtherUsageRow)
        adjustSectionInformation(QStringLiteral("Duty"), usageRows().at(row));
    emit endAnswered();
}

void CorvaneQuestions::handleOtherUsage(int key, QString text)
{
    if (key != 0)
        adjustSectionInformation(QStringLiteral("Duty"), text);
    emit endAnswered();
}
