#pragma once

#include "app/browser/reportpage.h"

// A level whose rows are folders the operator may copy or delete: sites and surveys.
class FolderPage : public ReportPage
{
    Q_OBJECT
public:
    explicit FolderPage(QWidget *parent = nullptr);

    QString keyHint() const override;

signals:
    void copy(const QString &path);
    void remove(const QString &path);

protected:
    bool handleKey(int key) override;
    // Whether Right or OK may open the row.
    virtual bool canOpen(const QString &name) const;
    QString selectedPath() const;

private:
    void handleCopy();
    void handleDelete();
};
