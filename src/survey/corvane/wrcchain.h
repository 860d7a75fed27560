#pragma once

#include "survey/wincan/defectcodechain.h"

#include <QString>
#include <QStringList>

// The questions of an ostra survey to the WRC schema, driven by catalogue codes:
// the start node type when recording starts and the end node type when it
// stops; codes by letter and continuous defects as in every code-based survey.
class WrcChain : public DefectCodeChain
{
    Q_OBJECT
public:
    explicit WrcChain(QObject *parent = nullptr);

    // "Manhole(MH)", ...: the start node rows, translated.
    static QStringList nodeList();
    // End node codes and their rows, pair by pair.
    static QStringList endNodes();
    static QStringList endNodesList();

    void startNodeList();
    void showStartNode();
    void showEndQuestions();
    // A letter key while recording: asks for the rest of the code.
    void text_key(QChar letter);

public slots:
    void handleStartNode(int row);
    void menuStop(int row);

protected:
    void noteDefectEnded(const QString &group) override;
};
