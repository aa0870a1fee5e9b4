#pragma once

/// The system profile's country code (section intl, key iCountry): Windows' own there; elsewhere 81 when the system
/// locale's territory is Japan, else 1.
int countryCode();

/// Overrides countryCode() for this process; 0 returns to the system's. For tests.
void setCountryCode(int code);
