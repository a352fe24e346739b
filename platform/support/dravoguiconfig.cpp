#include "dravoguiconfig.h"

#include "ciniparser.h"
#include "clogdebug.h"
#include "constconfig.h"

#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QMutexLocker>
#include <QTextCodec>

namespace {

char const* const kModule = "platform/support/dravoguiconfig";
char const* const kSection = "branding";
qint64 const kMaxFileSize = 1024 * 1024;

struct KeyInfo
{
    char const* name;
    QString (*fallback)();
};

KeyInfo const kKeys[] = {
    {"theme", &ConstConfig::defaultTheme},
    {"productName", &ConstConfig::defaultProductName},
    {"logoIconPath", &ConstConfig::defaultLogoIconPath},
    {"homePageContent", &ConstConfig::defaultHomePageContent},
};

// What was read, shared by all getters until reload().
struct BrandingCache
{
    QMutex mutex;
    bool loaded = false;
    int status = DravoGuiConfig::Success;
    QString overridePath;
    QString path;
    QString values[sizeof(kKeys) / sizeof(kKeys[0])];
};

BrandingCache& cache()
{
    static BrandingCache instance;
    return instance;
}

bool isUtf8(QByteArray const& bytes)
{
    QTextCodec* codec = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state;
    codec->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

// Reads `path` into `text`; 0 or the error code.
int readBrandingFile(QString const& path, std::string& text)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[DravoGuiConfig] open config file failed, path is [%s], error is [%s]",
                    qUtf8Printable(path), qUtf8Printable(file.errorString()));
        return DravoGuiConfig::ErrUnreadable;
    }
    QByteArray const bytes = file.read(kMaxFileSize + 1);
    if (bytes.size() > kMaxFileSize || !isUtf8(bytes)) {
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[DravoGuiConfig] config file is not UTF-8 text of at most 1 MiB, path is [%s]",
                    qUtf8Printable(path));
        return DravoGuiConfig::ErrMalformed;
    }
    text.assign(bytes.constData(), static_cast<size_t>(bytes.size()));
    return DravoGuiConfig::Success;
}

// The file to read and whether it was asked for by name (a named file that is
// missing is an error; a missing installed file just means no branding).
QString resolvePath(QString const& overridePath, bool& named)
{
    named = true;
    if (!overridePath.isEmpty())
        return overridePath;
    QString const fromEnv = qEnvironmentVariable("QUORIX_GUI_CONFIG");
    if (!fromEnv.trimmed().isEmpty())
        return fromEnv;
    named = false;
    QString const installed = ConstConfig::brandingFile();
    return QFileInfo::exists(installed) ? installed : QString();
}

void loadLocked(BrandingCache& c)
{
    c.loaded = true;
    c.status = DravoGuiConfig::Success;
    for (size_t i = 0; i < sizeof(kKeys) / sizeof(kKeys[0]); ++i)
        c.values[i] = kKeys[i].fallback();

    bool named = false;
    c.path = resolvePath(c.overridePath, named);
    if (c.path.isEmpty()) {
        BFLogPrintX(BFLOG_DEBUG, kModule, __FUNCTION__, __LINE__, "[DravoGuiConfig] no branding file, built-in defaults used");
        return;
    }
    std::string text;
    c.status = readBrandingFile(c.path, text);
    if (c.status != DravoGuiConfig::Success)
        return;
    for (size_t i = 0; i < sizeof(kKeys) / sizeof(kKeys[0]); ++i) {
        std::string raw;
        if (!CIniParser::parseItemValue(text, kSection, kKeys[i].name, raw))
            continue;
        QString const found = QString::fromUtf8(raw.data(), static_cast<int>(raw.size())).trimmed();
        if (!found.isEmpty())
            c.values[i] = found;
    }
    BFLogPrintX(BFLOG_DEBUG, kModule, __FUNCTION__, __LINE__, "[DravoGuiConfig] branding read from [%s]", qUtf8Printable(c.path));
}

} // namespace

int DravoGuiConfig::value(Key key, QString& out)
{
    BrandingCache& c = cache();
    QMutexLocker lock(&c.mutex);
    if (!c.loaded)
        loadLocked(c);
    if (c.status != Success)
        return c.status;
    out = c.values[key];
    return Success;
}

int DravoGuiConfig::value(Key key, std::string& out)
{
    QString text;
    int const ret = DravoGuiConfig::value(key, text);
    if (ret == Success)
        out = text.toStdString();
    return ret;
}

int DravoGuiConfig::theme(QString& v) { return value(KeyTheme, v); }
int DravoGuiConfig::productName(QString& v) { return value(KeyProductName, v); }
int DravoGuiConfig::logoIconPath(QString& v) { return value(KeyLogoIconPath, v); }
int DravoGuiConfig::homePageContent(QString& v) { return value(KeyHomePageContent, v); }
int DravoGuiConfig::theme(std::string& v) { return value(KeyTheme, v); }
int DravoGuiConfig::productName(std::string& v) { return value(KeyProductName, v); }
int DravoGuiConfig::logoIconPath(std::string& v) { return value(KeyLogoIconPath, v); }
int DravoGuiConfig::homePageContent(std::string& v) { return value(KeyHomePageContent, v); }

void DravoGuiConfig::setConfigPath(QString const& path)
{
    BrandingCache& c = cache();
    QMutexLocker lock(&c.mutex);
    c.overridePath = path;
    c.loaded = false;
}

void DravoGuiConfig::reload()
{
    BrandingCache& c = cache();
    QMutexLocker lock(&c.mutex);
    c.loaded = false;
}

QString DravoGuiConfig::configPath()
{
    BrandingCache& c = cache();
    QMutexLocker lock(&c.mutex);
    if (!c.loaded)
        loadLocked(c);
    return c.path;
}

int DravoGuiConfig::status()
{
    BrandingCache& c = cache();
    QMutexLocker lock(&c.mutex);
    if (!c.loaded)
        loadLocked(c);
    return c.status;
}
