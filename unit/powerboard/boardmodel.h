#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

// What the simulated power board knows and says: each value sits under the
// keyword the board uses for it, so a query "KEY?" is answered "KEY value".
class BoardModel
{
public:
    enum class Camera { kNone, kOld, kNew };
    enum class Coiler { kOld, kNew };

    BoardModel();

    void setBoardType(bool newBoard);
    void setCamera(Camera camera);
    void setCoiler(Coiler coiler);
    bool newBoard() const { return m_newBoard; }

    // The lines a board sends in answer to one command (often none).
    QStringList answer(const QString &command);
    // A value change from the scenario or the command channel; false when the
    // key is unknown.
    bool set(const QString &key, const QString &value);
    QString value(const QString &key) const { return m_values.value(key); }
    bool has(const QString &key) const { return m_values.contains(key); }
    // The battery report the board sends on its own.
    QStringList batteryReport() const;

private:
    void resetLogs();
    void resetCameraLogs();
    QString clockLine(const QStringList &words) const;

    QMap<QString, QString> m_values;
    QString m_passCode = QStringLiteral("1234");
    bool m_newBoard = true;
    Camera m_camera = Camera::kNew;
    Coiler m_coiler = Coiler::kNew;
};
