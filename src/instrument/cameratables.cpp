#include "instrument/cameratables.h"

#include "core/unitpaths.h"

#include <QDebug>
#include <QFile>
#include <QStringList>
#include <QTextStream>

namespace {
// The camera table's thresholds are given at the board's nominal supply; the
// replies come 3 % low.
constexpr double kCurrentScale = 0.97;
// A camera's hardware reply wanders a little either side of the value in the table.
constexpr int kHardwareSpread = 8;

QString coilerTableFile()
{
    return unitPath(QStringLiteral("/opt/hbi/tables/coiler_table.txt"));
}

QString cameraTableFile()
{
    return unitPath(QStringLiteral("/opt/hbi/tables/camera_table.txt"));
}

// Lines of a table file that split into at least `fields` comma-separated fields.
QList<QStringList> readTableRows(const QString &fileName, int fields, const char *failure)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qWarning() << failure;
        return {};
    }
    QList<QStringList> rows;
    QTextStream in(&file);
    while (!in.atEnd()) {
        const QStringList row = in.readLine().split(QLatin1Char(','));
        if (row.size() >= fields)
            rows << row;
    }
    return rows;
}

int field(const QStringList &row, int index)
{
    return row.at(index).trimmed().toInt();
}

int current(const QStringList &row, int index)
{
    return int(row.at(index).trimmed().toFloat() / kCurrentScale);
}
} // namespace

void CameraTables::ReadCoilerFile()
{
    coilerLookup.clear();
    const QList<QStringList> rows = readTableRows(coilerTableFile(), 6,
                                                  "Error could not read coiler table file!");
    for (const QStringList &row : rows) {
        CoilerTable entry;
        entry.IDMin = field(row, 0);
        entry.IDMax = field(row, 1);
        entry.type = field(row, 2);
        entry.pushrodLength = field(row, 3);
        entry.meterage = row.at(4).trimmed().toFloat();
        entry.EQ = field(row, 5);
        coilerLookup << entry;
    }
}

void CameraTables::ReadCameraFile()
{
    cameraLookup.clear();
    const QList<QStringList> rows = readTableRows(cameraTableFile(), 5,
                                                  "Error could not read camera table file!");
    for (const QStringList &row : rows) {
        CameraTable entry;
        const int hardware = field(row, 0);
        entry.hwMin = hardware - kHardwareSpread;
        entry.hwMax = hardware + kHardwareSpread;
        entry.atexCompliant = field(row, 1);
        entry.disconnectThreshold = current(row, 2);
        entry.lowerFaultThreshold = current(row, 3);
        entry.upperFaultThreshold = current(row, 4);
        cameraLookup << entry;
    }
}

const CameraTables::CoilerTable *CameraTables::coiler(int coilerID) const
{
    for (const CoilerTable &entry : coilerLookup) {
        if (entry.IDMin <= coilerID && coilerID <= entry.IDMax)
            return &entry;
    }
    return nullptr;
}

CameraTables::CameraTable CameraTables::camera(int hardware) const
{
    for (const CameraTable &entry : cameraLookup) {
        if (entry.hwMin <= hardware && hardware <= entry.hwMax)
            return entry;
    }
    return {};
}
