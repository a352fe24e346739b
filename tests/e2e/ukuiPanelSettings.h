#pragma once

#include <QProcessEnvironment>
#include <QTemporaryDir>

// The UKUI panel's settings as gsettings reads them: the schema
// "org.ukui.panel.settings" compiled into a folder of the test's own, its
// values in a keyfile backend that the test rewrites between questions.
class UkuiPanelSettings
{
public:
    UkuiPanelSettings();

    // Compiles the schema; false when glib-compile-schemas fails.
    bool compile();
    // panelposition: 0 bottom, 1 top, 2 left, 3 right; panelsize in pixels.
    bool set(uint position, int size);
    // `base` with gsettings pointed at this schema and keyfile.
    QProcessEnvironment environment(QProcessEnvironment base) const;

private:
    QTemporaryDir m_dir;
};
