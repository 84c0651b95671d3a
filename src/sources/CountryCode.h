// Country codes from what lists say about their channels.
#pragma once

#include <QByteArrayView>

#include <string>

namespace zeph {

/// UTF-8, upper case, two characters; empty when there is none. A string for its lack of
/// allocations.
using CountryCode = std::string;

/// From a value such as "us;de" (the first one counts).
CountryCode declaredCountryCode(QByteArrayView value);

/// From the id of a channel, such as "BBCOne.uk@HD".
CountryCode inferredCountryCode(QByteArrayView channelID);

} // namespace zeph
