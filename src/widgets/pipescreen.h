#pragma once

#include <QWidget>

class QLabel;

// Base of every page of the main window.
class PipeScreen : public QWidget
{
    Q_OBJECT
public:
    explicit PipeScreen(QWidget *parent = nullptr);

    // Called each time the page becomes the current one.
    virtual void initialise();

public slots:
    void focusNextChild_slot();

protected:
    // The product logo, or the customer's own /opt/hbi/logo.png when the unit has one.
    static void showProductLogo(QLabel *label);
};
