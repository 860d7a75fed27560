#pragma once

#include "storage/storagebase.h"

#include <QHash>

class ExternalStorageDelegate;
class ISerial;
class QProcess;
class QTimer;

template <typename T>
class Singleton;

// Listens to the mount scripts, chooses the device surveys are saved to and
// estimates how many minutes of recording it still holds.
class ExternalStorage : public StorageBase
{
    Q_OBJECT
public:
    // What one minute of recording takes, in the unit the free-space script prints.
    static constexpr qint64 kKilobytesPerMinute = 22000;
    static constexpr int kUpdateIntervalMs = 30000;

    static ExternalStorage *instance(QObject *parent = nullptr);

    void init();
    // While set, the save-to device stays as chosen whatever is plugged or pulled.
    void setSaveActive(bool active);
    QString getSaveToPath() const;
    int saveIndex() const;
    int getMinsRemaining() const { return m_mins_remaining; }
    void startTimer();
    void stopTimer();
    // 0 if the directory exists or was made, 1 if not.
    int mkdir(const QString &path);

signals:
    void saveto_device_changed(StorageBase::StorageItem item, QString path);
    void disk_time_updated(int mins);

public slots:
    // Measures the save-to device now and waits for the answer.
    void update();
    // The same answer without waiting: taken from this mount's measurement when
    // there is one, else measured in the background and published when it comes.
    void requestUpdate();
    void handle_mount(QString item, QString path) override;
    void handle_unmount(QString path) override;

private:
    friend class Singleton<ExternalStorage>;
    explicit ExternalStorage(QObject *parent);
    ~ExternalStorage() override;

    void setSaveIndex(int index);
    void updateSaveIndex();
    void tableChanged();
    // False if the script did not start.
    bool measureMinutesLeft(const QString &path, int *minutes) const;
    static int minutesFromPrinted(const QByteArray &printed, const QString &path);
    void remeasure();
    void answerRequest();
    void startMeasuring(const QString &path);
    void measuringEnded(const QByteArray &printed, bool started = true);
    int pathToSlot(const QString &path) const;
    void publishMinutes(int minutes);

    // Kept quirk: this names the StorageBase singleton's table and hides the one
    // this object inherits, which stays empty. Lookups inherited from StorageBase,
    // called on this object, therefore find nothing.
    QString *storeage_paths = nullptr;
    ISerial *m_fifo = nullptr;
    ExternalStorageDelegate *m_ext_delegate = nullptr;
    QTimer *m_timer = nullptr;
    bool m_save_active = false;
    int m_save_index = -1;
    int m_mins_remaining = -1;
    // Minutes left by path, measured once per mount; a pulled or replugged device forgets its own.
    QHash<QString, int> m_measured;
    QTimer *m_requestTimer = nullptr;
    QProcess *m_measuring = nullptr;
    QString m_measuringPath;
    bool m_requestAgain = false;
};
