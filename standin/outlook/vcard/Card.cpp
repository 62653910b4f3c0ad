#include "standin/outlook/vcard/Card.h"

#include <optional>

#include "standin/outlook/vcard/Decoding.h"

namespace standin::outlook::vcard {
namespace {

// One line feed for each line break; some programs write two carriage returns before it, others none or no
// feed.
std::string withPlainLineBreaks(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r') {
            result += text[i];
            continue;
        }
        const std::size_t after = std::min(text.find_first_not_of('\r', i), text.size());
        const bool beforeFeed = after < text.size() && text[after] == '\n';
        if (!beforeFeed) result.append(after - i, '\n');
        i = after - 1;
    }
    return result;
}

// Reads a file line by line and says whether the next line continues the present one.
class LineReader {
  public:
    explicit LineReader(const std::string& text) : text_(withPlainLineBreaks(text)) {}

    // Number of the last line that was read.
    int number() const { return number_; }

    std::optional<std::string> next() {
        if (position_ >= text_.size()) return {};
        const std::size_t end = std::min(text_.find('\n', position_), text_.size());
        std::string line = text_.substr(position_, end - position_);
        position_ = end + 1;
        ++number_;
        return line;
    }

    // The blank in front that says so may belong to the value.
    bool isFolded() const {
        return position_ < text_.size() && (text_[position_] == ' ' || text_[position_] == '\t');
    }
    // A line that can only be the rest of a long base64 value.
    bool isBareBase64() const {
        if (position_ >= text_.size() || text_[position_] == '\n') return false;
        const std::size_t end = std::min(text_.find_first_of("\n:;", position_), text_.size() - 1);
        const bool isNameOfFoldedLine =
            end + 1 < text_.size() && (text_[end + 1] == ' ' || text_[end + 1] == '\t');
        return (text_[end] == '\n' && !isNameOfFoldedLine) || end + 1 == text_.size();
    }

  private:
    std::string text_;
    std::size_t position_ = 0;
    int number_ = 0;
};

std::string withoutBlanks(std::string text) {
    std::erase_if(text, [](char c) { return c == ' ' || c == '\t'; });
    return text;
}

void addParameter(Property& property, const std::string& parameter) {
    const std::size_t equals = parameter.find('=');
    const std::string name = equals == std::string::npos ? "" : upper(parameter.substr(0, equals));
    std::string value = upper(equals == std::string::npos ? parameter : parameter.substr(equals + 1));
    std::erase_if(value, [](char c) { return c == '"' || c == '\\'; });
    if (value == "QUOTED-PRINTABLE")
        property.quotedPrintable = true;
    else if ((name == "ENCODING" && value == "B") || value == "BASE64")
        property.base64 = true;
    else if (name == "CHARSET")
        property.charset = value;
    else if (name == "VALUE")
        property.uri = value == "URI" || value == "URL";
    if (!name.empty() && name != "TYPE") return;
    for (std::size_t start = 0; start <= value.size();) {
        const std::size_t comma = std::min(value.find(',', start), value.size());
        property.types.insert(value.substr(start, comma - start));
        start = comma + 1;
    }
}

// Name, parameters and the first line of the value; empty for a line that is no property.
std::optional<Property> parseLine(const std::string& line, bool obeysQuotes = true) {
    std::vector<std::string> head(1);
    bool quoted = false;
    std::size_t i = 0;
    for (; i < line.size() && (quoted || line[i] != ':'); ++i) {
        if (line[i] == '"' && obeysQuotes) quoted = !quoted;
        if (line[i] == ';' && !quoted)
            head.emplace_back();
        else
            head.back() += line[i];
    }
    // A quote that is never closed hides nothing.
    if (i == line.size() && quoted) return parseLine(line, false);
    if (i == line.size()) return {};
    for (std::string& part : head) part = withoutBlanks(std::move(part));
    Property property;
    const std::size_t dot = head.front().find('.');
    if (dot != std::string::npos) property.group = upper(head.front().substr(0, dot));
    property.name = upper(dot == std::string::npos ? head.front() : head.front().substr(dot + 1));
    for (std::size_t p = 1; p < head.size(); ++p) addParameter(property, head[p]);
    property.value = line.substr(i + 1);
    return property;
}

// The same of a line that may be folded before its colon.
std::optional<Property> readProperty(LineReader& reader, std::string line) {
    std::optional<Property> property = parseLine(line);
    while (!property && reader.isFolded()) {
        line += reader.next()->substr(1);
        property = parseLine(line);
    }
    return property;
}

bool hasSoftBreak(std::string& value) {
    const std::size_t end = value.find_last_not_of(" \t");
    if (end == std::string::npos || value[end] != '=') return false;
    value.erase(end);
    return true;
}

void readContinuation(LineReader& reader, Property& property, bool oldVersion) {
    while (property.quotedPrintable && hasSoftBreak(property.value)) {
        std::optional<std::string> more = reader.next();
        if (!more) break;
        property.value += *more;
    }
    while (reader.isFolded()) {
        const std::string more = *reader.next();
        property.value += oldVersion && !property.base64 ? more : more.substr(1);
    }
    while (property.base64 && reader.isBareBase64()) property.value += *reader.next();
    if (property.quotedPrintable) property.value = decodeQuotedPrintable(property.value);
}

bool isMarker(const Property& property, const char* name) {
    return property.name == name && upper(property.value).find("VCARD") != std::string::npos;
}

// How many cards deeper the next line stands. Some programs begin an agent's card on the agent's own line.
int depthChange(const Property& property) {
    if (isMarker(property, "BEGIN")) return 1;
    if (isMarker(property, "END")) return -1;
    const std::string value = property.name == "AGENT" ? upper(property.value) : "";
    return value.starts_with("BEGIN:VCARD") && value.find("END:VCARD") == std::string::npos ? 1 : 0;
}

// The rest of a card whose BEGIN has been read.
Card readCard(LineReader& reader) {
    const int start = reader.number();
    Card card;
    const auto note = [&](int line, const char* what) {
        card.unread.push_back("line " + std::to_string(line) + ": " + what);
    };
    int depth = 1;
    while (std::optional<std::string> line = reader.next()) {
        const int number = reader.number();
        const bool isEmpty = line->find_first_not_of(" \t") == std::string::npos;
        std::optional<Property> property = readProperty(reader, std::move(*line));
        if (!property) {
            if (!isEmpty && depth == 1) note(number, "not a line of an address book");
            continue;
        }
        readContinuation(reader, *property, card.isOldVersion);
        const int change = depthChange(*property);
        depth += change;
        if (depth == 0) return card;
        if (change > 0 || isMarker(*property, "AGENT"))
            note(number, "a card within the card");
        else if (property->name == "VERSION" && depth == 1)
            card.isOldVersion = property->value.starts_with("2");
        else if (depth == 1 && change == 0)
            card.properties.push_back(std::move(*property));
    }
    throw Malformed("line " + std::to_string(start) + ": the card has no END:VCARD");
}

// Splits at separators that are not escaped; the escapes stay.
std::vector<std::string> split(const std::string& value, char separator) {
    std::vector<std::string> parts(1);
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == separator) {
            parts.emplace_back();
            continue;
        }
        parts.back() += value[i];
        if (value[i] == '\\' && i + 1 < value.size()) parts.back() += value[++i];
    }
    return parts;
}

std::string unescaped(const std::string& value, bool oldVersion) {
    std::string result;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char after = value[i] == '\\' && i + 1 < value.size() ? value[i + 1] : '\0';
        const bool isEscape = oldVersion ? after == ';' : after != '\0';
        if (!isEscape) {
            result += value[i];
            continue;
        }
        if (after == 'n' || after == 'N')
            result += "\r\n";
        else
            result += after;
        ++i;
    }
    return result;
}

}  // namespace

const Property* Card::find(std::string_view name) const {
    for (const Property& property : properties) {
        if (property.name == name) return &property;
    }
    return nullptr;
}

std::wstring Card::text(const Property& property) const {
    return decodeCharacters(unescaped(property.value, isOldVersion), property.charset);
}

std::vector<std::wstring> Card::parts(const Property& property) const {
    std::vector<std::wstring> result;
    for (const std::string& part : split(property.value, ';')) {
        std::string joined;
        for (const std::string& entry : isOldVersion ? std::vector{part} : split(part, ',')) {
            if (!joined.empty()) joined += ' ';
            joined += unescaped(entry, isOldVersion);
        }
        result.push_back(decodeCharacters(joined, property.charset));
    }
    return result;
}

std::vector<Card> parseCards(std::string bytes) {
    std::vector<Card> cards;
    LineReader reader(withoutByteOrderMark(std::move(bytes)));
    while (std::optional<std::string> line = reader.next()) {
        const std::optional<Property> property = parseLine(*line);
        if (property && isMarker(*property, "BEGIN")) cards.push_back(readCard(reader));
    }
    if (cards.empty()) throw Malformed("there is no BEGIN:VCARD");
    return cards;
}

}  // namespace standin::outlook::vcard
