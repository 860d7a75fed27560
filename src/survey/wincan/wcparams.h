#pragma once

#include "wccat.h"

#include <QObject>
#include <QString>
#include <QStringList>

class CDDatabase;
class IVideoScreen;

// Turns one defect code into an observation: asks the catalogue for the code's
// parameters, has the operator fill them in, builds the sentence from the code's
// template and writes the block of observation lines
//
//   CODE [CDEF] TEXT [snapshot] REMS CLKT CLKF QANT.. END
//
// One object serves one code. How the entry was started decides what follows
// the block (definition codes below).
class WCParams : public QObject
{
    Q_OBJECT
public:
    // How an entry was started; 0 and above close the open continuous defect
    // at that place in CDDatabase::getAllDefects().
    enum DefinitionCode { kFreeDefect = -1, kStopNode = -2, kStartNode = -3, kWaterLevel = -4 };
    // A WRC survey keeps no more open continuous defects than this.
    static constexpr int kMaxWrcContinuousDefects = 3;

    WCParams(QString &code, QObject *parent = nullptr);

    void setVideoScreen(IVideoScreen *video) { m_video = video; }
    void run(int defCode);
    int count() const { return m_count; }
    WCCatParam *param(int index) const;
    QStringList captions() const;
    QString lastCode() const { return last_code; }
    QString lastSentence() const { return last_sentence; }

public slots:
    void menu_params(int item);
    void process_parameter(int key, QString value);
    void process_params(QStringList values);
    void menuSnapshot(int row);
    void stop();

signals:
    // The start node is written; the chain goes on to the water level.
    void startNodeEntered();

private:
    static QString text(const wchar_t *value);
    void showList();
    QString label(int index) const;
    void readParameter(int index);
    QString decorate(const QString &value) const;
    void rebuildPlaceholders();
    QString getObsText();
    QString serviceabilityPhrase() const;
    void writeBlock();
    void storeContinuousDefect(QString &sentence);
    void append(const QString &type, const QString &text);
    void showNote(const QString &title, const QString &text);
    QString surveyMode() const;

    int m_count = 0;
    WCCatParam **m_params = nullptr;
    IVideoScreen *m_video = nullptr;
    QString m_code;
    QString m_cd_code;
    QString m_remarks;
    QStringList m_quant;
    QString m_clock_to;
    QString m_clock_from;
    QString m_prefix;
    QString m_suffix;
    QString m_unit;
    WCCatBaseCode *m_basecode = nullptr;
    WCCatCharExt *m_charext = nullptr;
    QStringList placeholders;
    QStringList data;
    int m_item = 0;
    float m_counter = 0.0f;
    quint64 m_pos = 0;
    bool m_cont_def = false;
    CDDatabase *m_db = nullptr;
    bool take_snapshot = false;
    QString last_code;
    QString last_sentence;
    int m_def_code = kFreeDefect;
    // The catalogue's parameter count; m_count drops the serviceability one,
    // which is never asked.
    int m_allCount = 0;
    int m_serviceabilityIndex = -1;
};
