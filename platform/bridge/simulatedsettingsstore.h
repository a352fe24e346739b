#pragma once

#include "bridge_global.h"

#include <QMap>
#include <QString>

// The simulated backend's settings file: INI-style sections of key=value lines.
//
// Writes go through QSaveFile (a temporary file renamed over the old one), so a
// crash or a full disk leaves either the old file or the new one, never half of
// one. Reading tolerates anything: unreadable lines are logged and skipped.
// Not thread-safe; the owner serialises access.
class BRIDGE_EXPORT SimulatedSettingsStore
{
public:
    explicit SimulatedSettingsStore(QString filePath);

    QString filePath() const;

    // Replaces the contents with the file's; a missing file gives an empty
    // store and counts as success.
    bool load();
    // Writes the whole store atomically, creating the folder if needed.
    bool save() const;

    QString value(QString const& section, QString const& key, QString const& defaultValue = QString()) const;
    // False (and nothing stored) for a name that could not be written back
    // unambiguously.
    bool setValue(QString const& section, QString const& key, QString const& value);
    void remove(QString const& section, QString const& key);

    static bool isValidName(QString const& name);

private:
    void parseLine(QString const& line, QString& section, int lineNumber);

    QString m_path;
    QMap<QString, QMap<QString, QString>> m_sections;
};
