#pragma once

#include <QString>
#include <QVector>

// The unit's coiler and camera tables, /opt/hbi/tables/coiler_table.txt and
// camera_table.txt: which coiler IDs speak the new protocol with what calibration,
// and which camera hardware is ATEX and at what currents it counts as gone or faulty.
class CameraTables
{
public:
    struct CoilerTable {
        int IDMin = 0;
        int IDMax = 0;
        int type = 0;
        int pushrodLength = 0;
        float meterage = 0;
        int EQ = 0;
    };
    struct CameraTable {
        int hwMin = 0;
        int hwMax = 0;
        int atexCompliant = 0;
        int disconnectThreshold = 0;
        int lowerFaultThreshold = 0;
        int upperFaultThreshold = 0;
    };

    void ReadCoilerFile();
    void ReadCameraFile();

    // The row whose ID range holds `coilerID`, or nullptr for a coiler nobody knows.
    const CoilerTable *coiler(int coilerID) const;
    // The row whose hardware range holds `hardware`; an unknown camera gets all zeros.
    CameraTable camera(int hardware) const;

private:
    QVector<CoilerTable> coilerLookup;
    QVector<CameraTable> cameraLookup;
};
