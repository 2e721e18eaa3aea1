#pragma once

#include <QString>
#include <QVariant>
#include <QVector>
#include <functional>

// A criterion of Recordset::setFilter and Recordset::Find: clauses "Field op Value" with the
// operators < > <= >= <> = LIKE, joined by AND (binding first) and OR, in parentheses if need be.
// Values are numbers, strings in single quotes (a quote inside doubled) or dates between #.
// LIKE takes % or * at the end or at both ends only. Text compares without regard to case, as the
// original's cursor engine did; a numeric field against a quoted number compares as numbers; a
// Null never matches.
//
// A malformed criterion (a lone apostrophe inside a quoted value, a missing operator, a wildcard
// in the middle, parentheses nested deeper than kMaxDepth) raises 3001; an unknown field raises
// 3265.
class Criteria {
public:
    // columnOf gives a field's position, raising 3265 for an unknown name.
    Criteria(const QString& text, const std::function<int(const QString&)>& columnOf);

    // Whether a row's values meet the criterion. A quoted value that is not a number, compared
    // with a number, raises 3001.
    bool matches(const QVector<QVariant>& values) const;

    int clauseCount() const { return m_clauses; }

    // Far beyond what a screen writes; it keeps a hostile criterion from exhausting the stack.
    static constexpr int kMaxDepth = 100;

private:
    enum class Op { Less, Greater, LessEqual, GreaterEqual, NotEqual, Equal, Like, And, Or };
    enum class Like { Exact, Prefix, Contains };
    struct Node {
        Op op = Op::Equal;
        QVector<int> operands; // of AND and OR, a whole chain in one node
        int column = -1;       // the clause's field
        QVariant value;        // the clause's value
        bool quoted = false;
        Like like = Like::Exact;
    };

    int parseChain(Op op, const char* word, int (Criteria::*operand)());
    int parseOr();
    int parseAnd();
    int parseClause();
    QString parseField();
    Op parseOperator();
    void parseValue(Node& node);
    bool keyword(const char* word);
    void skipBlanks();
    [[noreturn]] void malformed() const;

    bool eval(int node, const QVector<QVariant>& values) const;
    static bool compare(const Node& clause, const QVariant& value);

    QString m_text;
    int m_pos = 0;
    int m_depth = 0;
    std::function<int(const QString&)> m_columnOf;
    QVector<Node> m_nodes;
    int m_root = -1;
    int m_clauses = 0;
};
