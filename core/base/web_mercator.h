#pragma once

// Spherical (web) Mercator on the unit square: x grows eastwards from 0 at
// longitude −180° to 1 at +180°, y grows southwards from 0 at the northern
// projection limit to 1 at the southern one. The map draws on this square and
// the heat cells are binned on it, so both must take their positions from here.

namespace trackloom {

/// The latitude at which the projected world becomes square.
inline constexpr double mercatorLatitudeLimit = 85.05112878;
/// Equator length of the sphere the tile servers project on, in metres.
inline constexpr double mercatorEquator = 40075016.685578488;

struct MercatorPoint {
    double x = 0;
    double y = 0;

    friend bool operator==(const MercatorPoint&, const MercatorPoint&) = default;
};

struct MercatorPosition {
    double latitude = 0;
    double longitude = 0;
};

/// The unit-square position of a coordinate in degrees. Latitudes beyond the
/// limit land on the square's edge; longitudes beyond ±180° land outside it, as
/// the map's neighbouring copies of the world need.
MercatorPoint mercatorProjected(double latitude, double longitude);

/// The coordinate of a unit-square position (the inverse of `mercatorProjected`
/// inside the limits).
MercatorPosition mercatorUnprojected(double x, double y);

/// Unit-square units per metre on the ground at `latitude` (Mercator stretches
/// distances by 1 / cos(latitude)).
double mercatorUnitsPerMetre(double latitude);

} // namespace trackloom
