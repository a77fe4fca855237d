#pragma once

#include "value_text.h"

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/base/FunctionRef.h>

#include <string>
#include <string_view>
#include <vector>

namespace gallery {

/// Lines "expression, what it gave" in two columns. The view is as high as its lines. What a class does that draws nothing.
class Transcript final : public plix::NSView {
public:
    static constexpr float usualWidth = 560;
    static constexpr float margin = 20;

    bool init() { return init(usualWidth); }
    bool init(float width);

    /// The expression as a programmer writes it, and its value as valueText() writes that. Answers the line's number.
    template <typename T> long show(std::string_view expression, T const& value) { return add(expression, valueText(value)); }
    /// Likewise with what the function answers, or that it raised NSRangeException; see SHOW.
    long evaluate(std::string_view expression, plix::FunctionRef<std::string()> value);
    /// A statement that gives nothing.
    void run(std::string_view statement) { add(statement, {}); }
    void addHeading(std::string_view text);
    /// A sentence across both columns.
    void addNote(std::string_view text);
    long add(std::string_view expression, std::string_view result);
    /// Changes what a line shows; for what is alive.
    template <typename T> void update(long line, T const& value) { setResult(line, valueText(value)); }
    void setResult(long line, std::string_view result);

    /// Only so many of the last lines are kept, which drops the numbers of lines, and the view has room for as many. For logs.
    void setLimit(long lines);
    /// Takes all lines out.
    void clear();

    long lineCount() const { return static_cast<long>(m_lines.size()); }
    std::string const& expressionAt(long line) const { return m_lines.at(static_cast<std::size_t>(line)).expression; }
    std::string const& resultAt(long line) const { return m_lines.at(static_cast<std::size_t>(line)).result; }

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(plix::Rect) override;

private:
    enum class Kind { line, heading, note };
    struct Line {
        Kind kind;
        std::string expression;
        std::string result;
        float top { 0 };
        float height { 0 };
    };

    long append(Kind, std::string_view expression, std::string_view result);
    float heightOf(Line const&) const;
    void layOut();
    void drawLine(Line const&, bool isTinted) const;
    float columnWidth(Line const&) const;
    float resultLeft() const;

    std::vector<Line> m_lines;
    long m_limit { 0 };
};

}

// For a page with a `transcript`: the text that is shown is the text that is compiled.
/// Adds a line for an expression.
#define SHOW(...) transcript->evaluate(#__VA_ARGS__, [&] { return ::gallery::valueText(__VA_ARGS__); })
/// Adds a line for a statement, and executes it; what it declares is there afterwards.
#define RUN(...)                                                                                                                   \
    transcript->run(#__VA_ARGS__ ";");                                                                                             \
    __VA_ARGS__
