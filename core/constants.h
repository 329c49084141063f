#pragma once

#include <QString>

using namespace Qt::StringLiterals;

// Root addresses of the three sites, without a trailing slash.
inline const QString TFM_ROOT_URL = u"https://www.transfermarkt.com"_s;
inline const QString EP_ROOT_URL = u"https://www.eliteprospects.com"_s;
inline const QString FMD_ROOT_URL = u"https://fmdataba.com"_s;

// Sent as the Referer of every request: a neutral page, never one of the sites.
inline const QString PLACEHOLDER_REFERER = u"https://www.example.com/"_s;

// Answers with the caller's outward address as plain text.
inline const QString IP_ECHO_URL = u"https://api.ipify.org"_s;

inline const QString ORGANISATION_DOMAIN = u"quillmark.app"_s;
