#pragma once

#include <QString>
#include <QStringList>

// The folders the host loads plugins from, all through CQPluginManager:
// <root>/lib/plugins-gui first (the base plugin, the bridge, then the rest),
// then each extra folder in turn, its plugins in file-name order. Developer
// and sample plugins live in extra folders (--plugin-dir, $QUORIX_PLUGIN_DIRS)
// so that a build or an installed client need not be changed to try them.
class HostPluginLoader
{
public:
    static constexpr char const* kEnvironmentVariable = "QUORIX_PLUGIN_DIRS";

    // The extra folders to load, in order: `requested` (--plugin-dir, in the
    // order given), then the colon-separated entries of `variable`. Relative
    // paths are taken from the working folder; empty entries, repeats and the
    // main folder itself are left out. A folder loaded first wins the plugin
    // ids it holds, so the command line comes before the environment.
    static QStringList extraFolders(QStringList const& requested, QString const& variable, QString const& mainFolder);

    HostPluginLoader(QString mainFolder, QStringList extraFolders);

    // Loads the main folder, then the extra folders (a missing one is logged
    // and skipped). Returns how many plugins the main folder gave.
    int loadAll();

private:
    static int loadExtraFolder(QString const& folder);

    QString m_mainFolder;
    QStringList m_extraFolders;
};
