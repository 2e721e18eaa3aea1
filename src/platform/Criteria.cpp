#include "platform/Criteria.h"

#include "platform/RuntimeError.h"

#include <QDateTime>
#include <QLocale>

namespace {
bool isNumeric(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::UChar:
    case QMetaType::SChar:
        return true;
    default:
        return false;
    }
}

// A number from a field or a quoted value: the machine's pt-BR form first, then the invariant one.
bool toNumber(const QVariant& value, double& number) {
    if (isNumeric(value)) {
        number = value.toDouble();
        return true;
    }
    const QString text = value.toString().trimmed();
    bool ok = false;
    number = QLocale(QLocale::Portuguese, QLocale::Brazil).toDouble(text, &ok);
    if (!ok)
        number = QLocale::c().toDouble(text, &ok);
    return ok;
}

QDateTime toMoment(const QVariant& value) {
    if (value.typeId() == QMetaType::QDateTime)
        return value.toDateTime();
    const QString text = value.toString().trimmed();
    for (const char* format : {"dd/MM/yyyy HH:mm:ss", "dd/MM/yyyy"}) {
        const QDateTime moment = QDateTime::fromString(text, QString::fromLatin1(format));
        if (moment.isValid())
            return moment;
    }
    return QDateTime::fromString(text, Qt::ISODate);
}

template <class T> int order(const T& a, const T& b) {
    return a < b ? -1 : (b < a ? 1 : 0);
}
} // namespace

Criteria::Criteria(const QString& text, const std::function<int(const QString&)>& columnOf)
    : m_text(text), m_columnOf(columnOf) {
    m_root = parseOr();
    skipBlanks();
    if (m_pos != m_text.size())
        malformed();
}

void Criteria::malformed() const {
    raiseError(vbErr::BadArguments);
}

void Criteria::skipBlanks() {
    while (m_pos < m_text.size() && m_text.at(m_pos).isSpace())
        ++m_pos;
}

// A keyword stands alone: a blank, a parenthesis or a quote must follow it.
bool Criteria::keyword(const char* word) {
    skipBlanks();
    const QLatin1String w(word);
    if (!QStringView(m_text).mid(m_pos).startsWith(w, Qt::CaseInsensitive))
        return false;
    const int end = m_pos + w.size();
    if (end < m_text.size()) {
        const QChar next = m_text.at(end);
        if (!next.isSpace() && next != QLatin1Char('(') && next != QLatin1Char('\''))
            return false;
    }
    m_pos = end;
    return true;
}

// "a OR b OR c" is one node holding every operand, so that neither parsing nor evaluating a long
// chain recurses once per clause.
int Criteria::parseChain(Op op, const char* word, int (Criteria::*operand)()) {
    const int first = (this->*operand)();
    if (!keyword(word))
        return first;
    Node chain;
    chain.op = op;
    chain.operands.append(first);
    do
        chain.operands.append((this->*operand)());
    while (keyword(word));
    m_nodes.append(chain);
    return m_nodes.size() - 1;
}

int Criteria::parseOr() {
    return parseChain(Op::Or, "OR", &Criteria::parseAnd);
}

int Criteria::parseAnd() {
    return parseChain(Op::And, "AND", &Criteria::parseClause);
}

int Criteria::parseClause() {
    skipBlanks();
    if (m_pos < m_text.size() && m_text.at(m_pos) == QLatin1Char('(')) {
        if (++m_depth > kMaxDepth)
            malformed();
        ++m_pos;
        const int inner = parseOr();
        skipBlanks();
        if (m_pos >= m_text.size() || m_text.at(m_pos) != QLatin1Char(')'))
            malformed();
        ++m_pos;
        --m_depth;
        return inner;
    }
    Node node;
    node.column = m_columnOf(parseField());
    node.op = parseOperator();
    parseValue(node);
    m_nodes.append(node);
    ++m_clauses;
    return m_nodes.size() - 1;
}

QString Criteria::parseField() {
    skipBlanks();
    if (m_pos < m_text.size() && m_text.at(m_pos) == QLatin1Char('[')) {
        const int close = m_text.indexOf(QLatin1Char(']'), m_pos + 1);
        if (close < 0)
            malformed();
        const QString name = m_text.mid(m_pos + 1, close - m_pos - 1);
        m_pos = close + 1;
        return name;
    }
    const int start = m_pos;
    while (m_pos < m_text.size() &&
           (m_text.at(m_pos).isLetterOrNumber() || m_text.at(m_pos) == QLatin1Char('_')))
        ++m_pos;
    if (m_pos == start)
        malformed();
    return m_text.mid(start, m_pos - start);
}

Criteria::Op Criteria::parseOperator() {
    skipBlanks();
    static const struct {
        const char* text;
        Op op;
    } symbols[] = {{"<=", Op::LessEqual}, {">=", Op::GreaterEqual}, {"<>", Op::NotEqual},
                   {"<", Op::Less},       {">", Op::Greater},       {"=", Op::Equal}};
    for (const auto& symbol : symbols) {
        const QLatin1String s(symbol.text);
        if (QStringView(m_text).mid(m_pos).startsWith(s)) {
            m_pos += s.size();
            return symbol.op;
        }
    }
    if (keyword("LIKE"))
        return Op::Like;
    malformed();
}

void Criteria::parseValue(Node& node) {
    skipBlanks();
    if (m_pos >= m_text.size())
        malformed();
    const QChar first = m_text.at(m_pos);
    if (first == QLatin1Char('\'')) {
        QString value;
        ++m_pos;
        for (;;) {
            if (m_pos >= m_text.size())
                malformed();
            const QChar c = m_text.at(m_pos++);
            if (c != QLatin1Char('\'')) {
                value += c;
            } else if (m_pos < m_text.size() && m_text.at(m_pos) == QLatin1Char('\'')) {
                value += c;
                ++m_pos;
            } else {
                break;
            }
        }
        node.value = value;
        node.quoted = true;
    } else if (first == QLatin1Char('#')) {
        const int close = m_text.indexOf(QLatin1Char('#'), m_pos + 1);
        if (close < 0)
            malformed();
        const QDateTime moment = toMoment(m_text.mid(m_pos + 1, close - m_pos - 1));
        if (!moment.isValid())
            malformed();
        node.value = moment;
        m_pos = close + 1;
    } else {
        const int start = m_pos;
        if (first == QLatin1Char('-') || first == QLatin1Char('+'))
            ++m_pos;
        while (m_pos < m_text.size() && (m_text.at(m_pos).isDigit() || m_text.at(m_pos) == QLatin1Char('.')))
            ++m_pos;
        bool ok = false;
        const double number = QLocale::c().toDouble(m_text.mid(start, m_pos - start), &ok);
        if (!ok)
            malformed();
        node.value = number;
    }

    if (node.op == Op::Like) {
        if (node.value.typeId() != QMetaType::QString)
            malformed();
        QString pattern = node.value.toString();
        auto isWild = [](QChar c) { return c == QLatin1Char('%') || c == QLatin1Char('*'); };
        const bool leading = !pattern.isEmpty() && isWild(pattern.front());
        if (leading)
            pattern.remove(0, 1);
        const bool trailing = !pattern.isEmpty() && isWild(pattern.back());
        if (trailing)
            pattern.chop(1);
        if (leading && !trailing && !pattern.isEmpty())
            malformed(); // only at the end, or at both ends
        for (const QChar c : std::as_const(pattern))
            if (isWild(c))
                malformed();
        node.like = leading ? Like::Contains : (trailing ? Like::Prefix : Like::Exact);
        node.value = pattern;
    }
}

bool Criteria::matches(const QVector<QVariant>& values) const {
    return eval(m_root, values);
}

bool Criteria::eval(int index, const QVector<QVariant>& values) const {
    const Node& node = m_nodes.at(index);
    switch (node.op) {
    case Op::And:
        for (const int operand : node.operands)
            if (!eval(operand, values))
                return false;
        return true;
    case Op::Or:
        for (const int operand : node.operands)
            if (eval(operand, values))
                return true;
        return false;
    default:
        return compare(node, values.at(node.column));
    }
}

bool Criteria::compare(const Node& clause, const QVariant& value) {
    if (value.isNull())
        return false;
    if (clause.op == Op::Like) {
        const QString text = value.toString();
        const QString pattern = clause.value.toString();
        switch (clause.like) {
        case Like::Exact:
            return text.compare(pattern, Qt::CaseInsensitive) == 0;
        case Like::Prefix:
            return text.startsWith(pattern, Qt::CaseInsensitive);
        case Like::Contains:
            return text.contains(pattern, Qt::CaseInsensitive);
        }
    }

    int result;
    if (value.typeId() == QMetaType::QDateTime || clause.value.typeId() == QMetaType::QDateTime) {
        const QDateTime a = toMoment(value), b = toMoment(clause.value);
        if (!b.isValid())
            raiseError(vbErr::BadArguments);
        if (!a.isValid())
            return false;
        result = order(a, b);
    } else if (isNumeric(value) || !clause.quoted) {
        double a, b;
        if (!toNumber(clause.value, b))
            raiseError(vbErr::BadArguments);
        if (!toNumber(value, a))
            return false;
        result = order(a, b);
    } else {
        result = value.toString().compare(clause.value.toString(), Qt::CaseInsensitive);
        result = result < 0 ? -1 : (result > 0 ? 1 : 0);
    }

    switch (clause.op) {
    case Op::Less:
        return result < 0;
    case Op::Greater:
        return result > 0;
    case Op::LessEqual:
        return result <= 0;
    case Op::GreaterEqual:
        return result >= 0;
    case Op::NotEqual:
        return result != 0;
    default:
        return result == 0;
    }
}
