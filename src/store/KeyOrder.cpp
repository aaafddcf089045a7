#include "store/KeyOrder.h"

#include "store/Schema.h"

#include <algorithm>
#include <limits>

namespace corvane::store {

SqlCondition SqlCondition::And(const SqlCondition& other) const {
    if (Empty()) return other;
    if (other.Empty()) return *this;
    SqlCondition out{"(" + Sql + ") AND (" + other.Sql + ")", Params};
    out.Params.insert(out.Params.end(), other.Params.begin(), other.Params.end());
    return out;
}

KeyOrder::KeyOrder(const TableDef& table, const IndexDef* index) {
    if (index) {
        for (const auto& name : index->Fields) {
            Term t;
            t.Field = table.FieldIndex(name);
            t.Column = schema::IndexColumnTerm(
                *index, table.Fields[static_cast<std::size_t>(t.Field)].Name);
            t.Descending = index->IsDescending(name);
            t.Type = table.Fields[static_cast<std::size_t>(t.Field)].Type;
            terms_.push_back(t);
        }
    }
    // Every SQLite index ends in the row id, ascending: the same tie-break lets the index give the
    // order without a sort.
    terms_.push_back(Term{-1, "rowid", false, FieldType::Integer});
}

std::string KeyOrder::OrderBy(bool reverse) const {
    std::string out;
    for (const auto& t : terms_) {
        if (!out.empty()) out += ", ";
        out += t.Column;
        out += (t.Descending != reverse) ? " DESC" : " ASC";
    }
    return out;
}

// Nulls sort first in an ascending index and last in a descending one.
static SqlCondition Equal(const KeyOrder::Term& t, const Value& v) {
    if (v.IsNull()) return {t.Column + " IS NULL", {}};
    return {t.Column + " IS ?", {v}};
}

// The values that come after v in the order of t, nearest first, as separate seeks.
static std::vector<SqlCondition> FollowingGroups(const KeyOrder::Term& t, const Value& v) {
    if (!t.Descending) {
        if (v.IsNull()) return {{t.Column + " IS NOT NULL", {}}};
        return {{t.Column + " > ?", {v}}};
    }
    if (v.IsNull()) return {};
    return {{t.Column + " < ?", {v}}, {t.Column + " IS NULL", {}}};
}

// The values that come before v in the order of t, nearest first.
static std::vector<SqlCondition> PrecedingGroups(const KeyOrder::Term& t, const Value& v) {
    if (t.Descending) {
        if (v.IsNull()) return {{t.Column + " IS NOT NULL", {}}};
        return {{t.Column + " > ?", {v}}};
    }
    if (v.IsNull()) return {};
    return {{t.Column + " < ?", {v}}, {t.Column + " IS NULL", {}}};
}

static std::vector<SqlCondition> Groups(const std::vector<KeyOrder::Term>& terms,
                                        const KeyOrder::Position& from, bool after) {
    std::vector<Value> values = from.Keys;
    values.push_back(Value(from.RowId));
    std::vector<SqlCondition> out;
    // Deepest level first: the same keys and a later row id, then the same leading keys and a
    // later value of the next key, and so on up to a later value of the first key.
    for (int level = static_cast<int>(terms.size()) - 1; level >= 0; --level) {
        SqlCondition prefix;
        for (int i = 0; i < level; ++i)
            prefix = prefix.And(
                Equal(terms[static_cast<std::size_t>(i)], values[static_cast<std::size_t>(i)]));
        const auto& t = terms[static_cast<std::size_t>(level)];
        const Value& v = values[static_cast<std::size_t>(level)];
        for (const auto& g : after ? FollowingGroups(t, v) : PrecedingGroups(t, v))
            out.push_back(prefix.And(g));
    }
    return out;
}

std::vector<SqlCondition> KeyOrder::After(const Position& from) const {
    return Groups(terms_, from, true);
}

std::vector<SqlCondition> KeyOrder::Before(const Position& from) const {
    return Groups(terms_, from, false);
}

// A bound below every value a column of the type holds. "x IS NOT NULL" would do, but SQLite
// drops it on a NOT NULL column and scans instead of seeking.
static Value Lowest(FieldType type) {
    switch (type) {
    case FieldType::String:
    case FieldType::Memo:
    case FieldType::Date:
        return Value(std::string());
    case FieldType::Float:
        return Value(-std::numeric_limits<double>::infinity());
    default:
        return Value(std::numeric_limits<std::int64_t>::min());
    }
}

std::vector<SqlCondition> KeyOrder::Everything(bool forward) const {
    const Term& t = terms_.front();
    SqlCondition values{t.Column + " >= ?", {Lowest(t.Type)}};
    if (t.Field < 0) return {values};
    // Nulls come first in an ascending index and last in a descending one.
    SqlCondition nulls{t.Column + " IS NULL", {}};
    bool nullsFirst = t.Descending != forward;
    return nullsFirst ? std::vector<SqlCondition>{nulls, values}
                      : std::vector<SqlCondition>{values, nulls};
}

// "at or after v" and "at or before v" in the order of one term, as one condition.
static SqlCondition AtOrAfter(const KeyOrder::Term& t, const Value& v) {
    if (v.IsNull()) return t.Descending ? SqlCondition{t.Column + " IS NULL", {}} : SqlCondition{};
    if (!t.Descending) return {t.Column + " >= ?", {v}};
    return {"(" + t.Column + " <= ? OR " + t.Column + " IS NULL)", {v}};
}

static SqlCondition AtOrBefore(const KeyOrder::Term& t, const Value& v) {
    if (v.IsNull()) return t.Descending ? SqlCondition{} : SqlCondition{t.Column + " IS NULL", {}};
    if (t.Descending) return {t.Column + " >= ?", {v}};
    return {"(" + t.Column + " <= ? OR " + t.Column + " IS NULL)", {v}};
}

static SqlCondition Strictly(const KeyOrder::Term& t, const Value& v, bool after) {
    auto groups = after ? FollowingGroups(t, v) : PrecedingGroups(t, v);
    if (groups.empty()) return {"0", {}};
    SqlCondition out{"(" + groups[0].Sql, groups[0].Params};
    for (std::size_t i = 1; i < groups.size(); ++i) {
        out.Sql += " OR " + groups[i].Sql;
        out.Params.insert(out.Params.end(), groups[i].Params.begin(), groups[i].Params.end());
    }
    out.Sql += ")";
    return out;
}

// The keys from |first| on compare lexicographically with bound: at or after it (or before).
static SqlCondition Lexicographic(const std::vector<KeyOrder::Term>& terms, std::size_t first,
                                  const std::vector<Value>& bound, bool after) {
    // k_first > b_first OR (k_first = b_first AND (k_next > b_next OR (... AND k_last >= b_last)))
    std::size_t last = bound.size() - 1;
    SqlCondition tail =
        after ? AtOrAfter(terms[last], bound[last]) : AtOrBefore(terms[last], bound[last]);
    if (tail.Empty()) tail = {"1", {}};
    for (std::size_t i = last; i-- > first;) {
        SqlCondition strict = Strictly(terms[i], bound[i], after);
        SqlCondition eq = Equal(terms[i], bound[i]).And(tail);
        SqlCondition combined{"(" + strict.Sql + " OR " + eq.Sql + ")", strict.Params};
        combined.Params.insert(combined.Params.end(), eq.Params.begin(), eq.Params.end());
        tail = combined;
    }
    return tail;
}

SqlCondition KeyOrder::Range(const std::vector<Value>& start, const std::vector<Value>& end) const {
    std::size_t n = std::min({start.size(), end.size(), terms_.size() - 1});
    SqlCondition out;
    std::size_t i = 0;
    // Leading keys equal at both ends become plain equalities: the index seeks straight to them.
    for (; i < n && start[i] == end[i]; ++i)
        out = out.And(Equal(terms_[i], start[i]));
    if (i == n) return out;
    // The first key that differs bounds the seek; the rest refine it.
    out = out.And(AtOrAfter(terms_[i], start[i])).And(AtOrBefore(terms_[i], end[i]));
    if (i + 1 < n) {
        std::vector<Value> s(start.begin(), start.begin() + static_cast<long>(n));
        std::vector<Value> e(end.begin(), end.begin() + static_cast<long>(n));
        out = out.And(Lexicographic(terms_, i, s, true)).And(Lexicographic(terms_, i, e, false));
    }
    return out;
}

} // namespace corvane::store
