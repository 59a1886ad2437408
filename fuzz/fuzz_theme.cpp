// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

// The text of a theme file. What is read of it, written as text, reads the same.

#include "screens/Theme.h"
#include "support/FuzzRun.h"
#include "support/Require.h"

#include <QJsonDocument>

namespace {

struct Role
{
    const char *key;
    QColor (Theme::*color)() const;
};

constexpr Role roles[] = {
    {"theme_background", &Theme::background}, {"theme_menu", &Theme::menu},
    {"theme_header", &Theme::header},         {"theme_highlight", &Theme::highlight},
    {"theme_icons", &Theme::icons},           {"theme_text", &Theme::text},
};

// A number that no channel can hold gives a colour that is none.
QString textOf(const QColor &color)
{
    if (!color.isValid())
        return QStringLiteral("256;0;0");
    return QStringLiteral("%1;%2;%3").arg(color.red()).arg(color.green()).arg(color.blue());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const FuzzRun run;
    const Theme theme(
        QJsonDocument::fromJson(QByteArray(reinterpret_cast<const char *>(data), int(size))).object());
    QJsonObject written{{QStringLiteral("theme_image_suffix"), theme.imgSuffix()}};
    for (const Role &role : roles)
        written.insert(QLatin1String(role.key), textOf((theme.*role.color)()));
    const Theme again(written);
    REQUIRE(again.imgSuffix() == theme.imgSuffix());
    for (const Role &role : roles)
        REQUIRE((again.*role.color)() == (theme.*role.color)());
    return 0;
}
