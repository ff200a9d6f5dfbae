#pragma once

#include <string>

/// What the product's setup recorded about the installation. Every call reads again; what cannot
/// be read gives the default. Texts are in the system's ANSI encoding. Any thread.

/// The distribution channel; empty when there is none.
std::string GetOemName();

/// The identifier of the download link; empty when there is none.
std::string GetXurlId();

/// The language in which the product was installed, such as "English"; empty when unknown.
std::string GetProductLanguage();

/// The version number that the configuration of the running executable names; "18.0" when there is
/// no such configuration.
std::wstring GetConfigVersionNo();

/// The same for the executable at the path given.
std::wstring ConfigVersionNoOf(const std::wstring &executable);
