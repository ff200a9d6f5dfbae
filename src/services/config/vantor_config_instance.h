#pragma once

#include "services/config/config_contract.h"

#include <QLibrary>
#include <QString>

#include <string>

/// The client of the remote configuration, whose library is loaded at run time. Without library or
/// object every look-up returns its default. Every step writes a line to the debug log. GUI thread,
/// but for `Instance`.
class CVantorConfigInstance
{
public:
    /// The process's one instance, created by the first call and never destroyed; null only when
    /// there was no memory for it. Any thread.
    static CVantorConfigInstance *Instance();

    /// Loads the library and creates its configuration object.
    CVantorConfigInstance();
    virtual ~CVantorConfigInstance();
    CVantorConfigInstance(const CVantorConfigInstance &) = delete;
    CVantorConfigInstance &operator=(const CVantorConfigInstance &) = delete;
    CVantorConfigInstance(CVantorConfigInstance &&) = delete;
    CVantorConfigInstance &operator=(CVantorConfigInstance &&) = delete;

    /// The text of a key without one trailing "/", or `strDefault`. A key may carry a suffix after
    /// a double underscore.
    QString GetString(const QString &qstrKey, const QString &strDefault);

    /// The boolean value of a key, or `bIsDefault`. The key as for `GetString`.
    bool GetBoolean(const QString &qstrKey, bool bIsDefault);

    /// Selects the audience by OEM name, the version tag given (UTF-8) and product language.
    void SetPreFix(const std::string &strVersion);

    /// Selects the audience by a ready prefix (UTF-8); a null one is ignored.
    void SetPreFix(const char *pszPrefix);

private:
    QLibrary library;
    VantorConfig *m_pConfig = nullptr;
    bool m_bInitRet = false;
};
