#pragma once

#include <cairo.h>
#include <glib-object.h>

#include <memory>

namespace morvak {

/// Owners of what cairo, pango and GObject hand out.

template <auto release>
struct Release {
    template <typename T>
    void operator()(T* object) const
    {
        release(object);
    }
};

using CairoSurface = std::unique_ptr<cairo_surface_t, Release<cairo_surface_destroy>>;
using CairoContext = std::unique_ptr<cairo_t, Release<cairo_destroy>>;
using CairoPattern = std::unique_ptr<cairo_pattern_t, Release<cairo_pattern_destroy>>;
using CairoFontOptions = std::unique_ptr<cairo_font_options_t, Release<cairo_font_options_destroy>>;

template <typename T>
using GObjectPointer = std::unique_ptr<T, Release<g_object_unref>>;

}  // namespace morvak
