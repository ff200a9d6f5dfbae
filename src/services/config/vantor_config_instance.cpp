#include "services/config/vantor_config_instance.h"

#include "services/config/config_key.h"
#include "services/product/product_facts.h"
#include "services/text/convert_text.h"

#include <QDebug>

#include <cstdlib>
#include <memory>
#include <new>

namespace {

constexpr std::uint32_t kSizingCall = 0xFFFFFFFF;

std::string Utf8(const QString &text)
{
    return ConvertText(text, QStringLiteral("Utf8"));
}

// The product's facts are in the ANSI code page; the library takes UTF-8.
std::string Utf8(const std::string &ansi)
{
    return Utf8(QString::fromLocal8Bit(ansi.c_str()));
}

// The value of a key, or the default. An implausible length counts as a failed allocation.
QString Fetch(VantorConfig *config, const QString &key, const std::string &suffix, QString value)
{
    const std::string name = Utf8(key);
    if (name.empty()) {
        return value;
    }
    const auto query = [config, &name, &suffix](char *buffer, std::uint32_t size) {
        return config->table->get_string_value(config, name.c_str(), buffer, size, suffix.c_str());
    };
    const std::int64_t length = query(nullptr, kSizingCall);
    if (length == VANTOR_QUERY_ERROR) {
        qDebug() << QStringLiteral("%1 query error!").arg(key);
        return value;
    }
    if (length == VANTOR_NO_VALUE) {
        qDebug() << QStringLiteral("%1 has No value!").arg(key);
        return value;
    }
    const std::int64_t size = length + 1;
    // calloc: no exception on failure, and zero-filled in case the library writes less than it
    // announced. Only the pages that are touched take physical memory.
    const std::unique_ptr<char, decltype(&std::free)> buffer(
        static_cast<char *>(size > 0 ? std::calloc(static_cast<std::size_t>(size), 1) : nullptr),
        std::free);
    if (!buffer) {
        qDebug() << QStringLiteral("%1 is too long! length:%2").arg(key, QString::number(size));
        return value;
    }
    query(buffer.get(), static_cast<std::uint32_t>(size));
    // Terminate the string if the library filled the whole buffer.
    buffer.get()[length] = '\0';
    if (*buffer == '\0') {
        return value;
    }
    value = QString::fromUtf8(buffer.get());
    if (value.endsWith(QLatin1Char('/'))) {
        value.chop(1);
    }
    return value;
}

} // namespace

CVantorConfigInstance *CVantorConfigInstance::Instance()
{
    static auto *const instance = new (std::nothrow) CVantorConfigInstance;
    return instance;
}

CVantorConfigInstance::CVantorConfigInstance()
    : library(QStringLiteral(VANTOR_CONFIG_LIBRARY))
{
    qDebug() << "CVantorConfigInstance::CVantorConfigInstance() enter";
    if (!library.load()) {
        qDebug() << "load vantoronlineconfig.dll error!";
    } else {
        // Deliberately called unchecked: a library without this function means a broken
        // installation, and ending here shows it. The uninstaller has not been started yet.
        const auto create =
            reinterpret_cast<VantorCreateConfigFunction>(library.resolve(VANTOR_CREATE_CONFIG));
        m_pConfig = create();
        if (m_pConfig == nullptr) {
            qDebug() << "vantoronlineconfig create  fun error!";
        } else {
            m_bInitRet = m_pConfig->table->init_config(m_pConfig, 0);
            qDebug() << "CVantorConfigInstance::CVantorConfigInstance() m_bInitRet=" << m_bInitRet;
            if (!m_bInitRet) {
                qDebug() << "vantoronlineconfig init failure!";
            }
        }
    }
    qDebug() << "CVantorConfigInstance::CVantorConfigInstance() leave";
}

CVantorConfigInstance::~CVantorConfigInstance()
{
    qDebug() << "CVantorConfigInstance::~CVantorConfigInstance enter";
    if (m_pConfig != nullptr) {
        const auto release =
            reinterpret_cast<VantorReleaseConfigFunction>(library.resolve(VANTOR_RELEASE_CONFIG));
        if (release != nullptr) {
            release(&m_pConfig);
        }
    }
    qDebug() << "CVantorConfigInstance::~CVantorConfigInstance leave";
}

QString CVantorConfigInstance::GetString(const QString &qstrKey, const QString &strDefault)
{
    qDebug() << "CVantorConfigInstance::GetString enter(qstrKey=" << qstrKey
             << " strDefault=" << strDefault << ")";
    const ConfigKey key = SplitConfigKey(qstrKey);
    QString strRet = strDefault;
    if (m_pConfig == nullptr) {
        qDebug() << "vantoronlineconfig need Create!";
    } else {
        strRet = Fetch(m_pConfig, key.name, Utf8(key.suffix), strDefault);
    }
    qDebug() << "CVantorConfigInstance::GetString leave. strRet=" << strRet;
    return strRet;
}

bool CVantorConfigInstance::GetBoolean(const QString &qstrKey, bool bIsDefault)
{
    const ConfigKey key = SplitConfigKey(qstrKey);
    qDebug() << "CVantorConfigInstance::GetBoolean enter(qstrKey=" << key.name
             << " bIsDefault=" << bIsDefault << ")";
    bool bRet = bIsDefault;
    if (m_pConfig == nullptr) {
        qDebug() << "vantoronlineconfig need Create!";
    } else if (const std::string name = Utf8(key.name); !name.empty()) {
        m_pConfig->table->get_bool_value(m_pConfig, name.c_str(), &bRet, Utf8(key.suffix).c_str());
    }
    qDebug() << "CVantorConfigInstance::GetBoolean leave. bRet=" << bRet;
    return bRet;
}

void CVantorConfigInstance::SetPreFix(const std::string &strVersion)
{
    qDebug() << "CVantorConfigInstance::SetPreFix enter(strVersion=" << strVersion.c_str() << ")";
    if (m_pConfig != nullptr) {
        const std::string oem = Utf8(GetOemName());
        const std::string language = Utf8(GetProductLanguage());
        std::string prefix;
        for (const std::string &part : {oem, strVersion, language}) {
            if (!part.empty()) {
                prefix += (prefix.empty() ? "" : "__") + part;
            }
        }
        SetPreFix(prefix.c_str());
    }
    qDebug() << "CVantorConfigInstance::SetPreFix(version) leave";
}

void CVantorConfigInstance::SetPreFix(const char *pszPrefix)
{
    qDebug() << "CVantorConfigInstance::SetPreFix enter(pszPrefix=" << pszPrefix << ")";
    if (pszPrefix != nullptr && m_pConfig != nullptr) {
        qDebug() << "CVantorConfigInstance::SetPreFix set_filter_environment start";
        m_pConfig->table->set_filter_environment(m_pConfig, pszPrefix);
        qDebug() << "CVantorConfigInstance::SetPreFix set_filter_environment end";
    }
    qDebug() << "CVantorConfigInstance::SetPreFix(char*) leave";
}
