#pragma once

#include <QString>

// The unit's persistent record of camera events, /opt/hbi/hwlogs/camera.log: one
// Latin-1 line an event, "date,group,code,serial,text". Service tools read the
// lines by their group and code, so those numbers never change meaning. The file
// is kept small by dropping the older half once it passes kTrimBytes.
class CameraEventLog
{
public:
    static constexpr qint64 kTrimBytes = 50000;

    explicit CameraEventLog(const QString &fileName);

    QString fileName() const { return m_fileName; }
    // Makes sure the file exists and anyone on the unit may read and write it.
    void touch() const;
    void append(int group, int code, const QString &serial) const;
    // One fault line for each alarm or warning bit the camera's status word (as
    // hexadecimal text) has set; a status that does not parse logs nothing.
    void appendStatus(const QString &status, const QString &serial) const;

    static QString eventText(int group, int code);

private:
    bool trim() const;

    QString m_fileName;
};
