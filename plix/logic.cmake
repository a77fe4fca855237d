# The sources of plix::logic, which needs nothing but the standard library. base/ and bitstream/ belong to it whole;
# of the other folders the plans and value functions named here.
file(GLOB PLIX_LOGIC_SOURCES CONFIGURE_DEPENDS platform/base/*.cpp bitstream/*.cpp)
list(APPEND PLIX_LOGIC_SOURCES
    controls/chiseled_popup_plan.cpp
    controls/image_view_plan.cpp
    controls/segment_separators.cpp
    controls/tab_window_fit.cpp
    drawing/geometry_helpers.cpp
    drawing/rounded_rect.cpp
    format/collection_additions.cpp
    format/color_text.cpp
    format/csv_line.cpp
    format/date_format.cpp
    format/date_range.cpp
    format/duration_text.cpp
    format/file_size_text.cpp
    format/number_text.cpp
    format/time_interval_text.cpp
    platform/appkit/cell_layout.cpp
    platform/appkit/key_bindings.cpp
    platform/appkit/reading_order.cpp
    platform/appkit/scroll_layout.cpp
    platform/appkit/scroller_geometry.cpp
    platform/appkit/theme_palette.cpp
    platform/foundation/NSCharacterSet.cpp
    platform/foundation/NSScanner.cpp
    platform/foundation/calendar_fields.cpp
    platform/foundation/date_parsing.cpp
    platform/foundation/date_pattern.cpp
    platform/foundation/date_text.cpp
    platform/foundation/natural_dates.cpp
    platform/appkit/view_geometry.cpp
    platform/foundation/path_operations.cpp
    platform/foundation/zone_rules.cpp
    platform/graphics/affine_transform.cpp
    platform/graphics/color_components.cpp
    platform/graphics/geometry.cpp
    platform/graphics/glyph_rules.cpp
    platform/graphics/text_lines.cpp
    platform/graphics/text_placement.cpp
    platform/graphics/path_geometry.cpp
    platform/graphics/pixel_operations.cpp
    platform/graphics/shadow_blur.cpp
    system/identity_text.cpp
    system/unique_path.cpp
    platform/host/desktop/ClickCounter.cpp
    platform/host/desktop/DeliveryQueue.cpp
    platform/host/desktop/key_translation.cpp
    platform/host/desktop/screen_space.cpp
    platform/host/window_placement.cpp
    platform/graphics/region.cpp
    tables/column_plan.cpp
    tables/row_highlight.cpp
    windows/background_plan.cpp
    windows/date_plans.cpp
)
list(TRANSFORM PLIX_LOGIC_SOURCES PREPEND ${CMAKE_CURRENT_LIST_DIR}/ REGEX "^[^/]")
