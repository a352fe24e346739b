#pragma once

#include <QDialog>

class CWinAboutPrivate;

// The modal about dialog: logo, a badge row plugins may add to, the
// virus-library and client versions and the copyright line. Frameless, dragged
// with the left button, deleted when closed.
class CWinAbout : public QDialog
{
    Q_OBJECT
public:
    explicit CWinAbout(QWidget* parent);
    ~CWinAbout() override;

    // Badges of the version row; 0 on success, -1 for null or a key taken.
    int registerItem(QWidget* w, int key);
    // 0 on success, -1 for an unknown key.
    int unRegisterItem(int key);

public slots:
    void slot_setClientVersionInfo(QString version);
    void slot_setVirusDataVersionInfo(QString version);
    void slot_close();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void InitControl();

    CWinAboutPrivate* d_ptr = nullptr;
};
