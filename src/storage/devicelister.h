#pragma once

#include "storage/lister.h"

// The top level: the storage devices mounted now. It follows the storage table
// live, so a stick plugged or pulled shows at once.
class DeviceLister : public Lister
{
    Q_OBJECT
public:
    explicit DeviceLister(QObject *parent = nullptr);

    void triggerUpdate() override;

public slots:
    void update();
};
