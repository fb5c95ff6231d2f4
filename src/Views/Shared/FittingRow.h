#pragma once

#include <QQuickItem>

#include <limits>

namespace corvane {

/// What a `FittingRow` knows of one of its parts; in QML the attached properties of the part.
///
/// A row has forms, counted from 0, the roomiest first. A part that wants no width is not there, however it
/// is set.
class FittingPart : public QObject {
    Q_OBJECT
    QML_ANONYMOUS
    /// What the part wants. Negative: its implicit width, or its width if it has no implicit one.
    Q_PROPERTY(double fullWidth MEMBER fullWidth NOTIFY changed FINAL)
    /// The form from which on the part is short. It is then `shortWidth` wide; 0 means that it is left out.
    Q_PROPERTY(int shortFrom MEMBER shortFrom NOTIFY changed FINAL)
    Q_PROPERTY(double shortWidth MEMBER shortWidth NOTIFY changed FINAL)
    /// The form from which on the part is content with what the others leave. Less than `leastWidth` is of no
    /// use to it: it is then left out.
    Q_PROPERTY(int shrinksFrom MEMBER shrinksFrom NOTIFY changed FINAL)
    Q_PROPERTY(double leastWidth MEMBER leastWidth NOTIFY changed FINAL)
    /// The line on which the part stands in each form, from 0; in further forms it stays on the last one.
    Q_PROPERTY(QList<int> lines MEMBER lines NOTIFY changed FINAL)
    /// The part and those behind it stand at the far end of the line.
    Q_PROPERTY(bool atEnd MEMBER atEnd NOTIFY changed FINAL)
    /// Stands on the baseline of the part before it.
    Q_PROPERTY(bool onBaseline MEMBER onBaseline NOTIFY changed FINAL)
    /// The row has chosen a form in which the part is short.
    Q_PROPERTY(bool isShort READ isShort NOTIFY isShortChanged FINAL)

public:
    static constexpr int never = std::numeric_limits<int>::max();

    using QObject::QObject;

    double fullWidth = -1;
    int shortFrom = never;
    double shortWidth = 0;
    int shrinksFrom = never;
    double leastWidth = 0;
    QList<int> lines;
    bool atEnd = false;
    bool onBaseline = false;

    [[nodiscard]] bool isShort() const { return m_isShort; }
    void setShort(bool isShort);

    [[nodiscard]] int lineIn(int form) const;
    [[nodiscard]] int lastForm() const;

signals:
    void changed();
    void isShortChanged();

private:
    bool m_isShort = false;
};

/// Shows its children side by side in the first form that fits the room there is, or else in the last one.
///
/// It places its children, as high as they want to be and in the middle of their line, and decides which of
/// them are visible. Its implicit size is that of the chosen form. A child's own wishes (`FittingPart`,
/// implicit width) must not depend on the form.
class FittingRow : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    QML_ATTACHED(corvane::FittingPart)
    Q_PROPERTY(double spacing MEMBER m_spacing NOTIFY layoutChanged FINAL)
    Q_PROPERTY(double lineSpacing MEMBER m_lineSpacing NOTIFY layoutChanged FINAL)
    /// What it may take at most. Negative: its own width.
    Q_PROPERTY(double available MEMBER m_available NOTIFY layoutChanged FINAL)
    Q_PROPERTY(int form READ form NOTIFY formChanged FINAL)

public:
    explicit FittingRow(QQuickItem* parent = nullptr);

    [[nodiscard]] int form() const { return m_form; }
    using QQuickItem::width;

    static FittingPart* qmlAttachedProperties(QObject* part);

signals:
    void layoutChanged();
    void formChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void updatePolish() override;

private:
    struct Part {
        QQuickItem* item;
        FittingPart* wishes;
        double full;
        /// In the form that is looked at; 0 if it is left out.
        double width = 0;
    };
    using Parts = std::vector<Part>;
    /// Positions in the list of parts.
    using Line = std::vector<size_t>;
    using Lines = std::vector<Line>;

    void follow(QQuickItem& child);
    void forget(QQuickItem& child);
    [[nodiscard]] double room() const { return m_available < 0 ? width() : m_available; }
    [[nodiscard]] Parts parts() const;
    [[nodiscard]] static Lines arrange(int form, Parts& parts);
    void giveWhatIsLeft(int form, const Lines& lines, Parts& parts) const;
    [[nodiscard]] double width(const Line& line, const Parts& parts) const;
    [[nodiscard]] double width(const Lines& lines, const Parts& parts) const;
    [[nodiscard]] static double lineHeight(const Line& line, const Parts& parts);
    void place(const Lines& lines, const Parts& parts);
    void placeLine(const Line& line, const Parts& parts, QPointF at, double height) const;
    void setForm(int form, const Parts& parts);

    double m_spacing = 0;
    double m_lineSpacing = 0;
    double m_available = -1;
    int m_form = 0;
};

} // namespace corvane
