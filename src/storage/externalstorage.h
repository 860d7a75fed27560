#pragma once

#include "storage/storagebase.h"

class ExternalStorageDelegate;
class ISerial;
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
    void update();
    void handle_mount(QString item, QString path) override;
    void handle_unmount(QString path) override;

private:
    friend class Singleton<ExternalStorage>;
    explicit ExternalStorage(QObject *parent);

    void setSaveIndex(int index);
    void updateSaveIndex();
    void tableChanged();
    // False if the script did not start; *minutes is left alone when it printed no number.
    bool measureMinutesLeft(const QString &path, int *minutes) const;

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
};
