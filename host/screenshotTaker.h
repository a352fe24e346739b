#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

class QPixmap;
class QWidget;

// Renders the client's windows into PNG files for the documentation: the main
// window, the right-top menu, the tray menu, the about window and the settings
// centre. It drives them the way a user would (through the bus and the frame
// link proxy), so what it saves is what a user sees.
class ScreenshotTaker : public QObject
{
    Q_OBJECT
public:
    ScreenshotTaker(QWidget* mainWindow, QString const& directory, QObject* parent = nullptr);

    // Takes every picture, then emits sig_done. Call once the main window is shown.
    void slot_takeAll();

    // Runs the event loop a little, so that windows are laid out and painted.
    static void settle();
    // `picture` as <directory>/<name>.png; a null picture (no window) is logged.
    static bool savePicture(QString const& directory, QString const& name, QPixmap const& picture);

signals:
    void sig_done();

private:
    bool save(QWidget* w, QString const& name);
    void takeMainWindow();
    void takeRightTopMenu();
    void takeTrayMenu();
    void takeAboutWindow();
    void takeSettingCentre();

    QPointer<QWidget> m_pMainWindow;
    QString m_directory;
};
