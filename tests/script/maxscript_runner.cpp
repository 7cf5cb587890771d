#include "maxscript_runner.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <memory>
#include <set>

namespace tos::test {

namespace {

std::string Lower(std::string text)
{
    for (char& c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

bool IsNameByte(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

// Kinds: a (name), k (keyword, a name before ':'), n (number), s (string), $ (path
// name), # (name value; empty before "#()"), q (==), \n, E (end), or the punctuation itself.
struct Token {
    char kind;
    std::string text;
    double number = 0;
    int line = 0;
};

std::vector<Token> Tokens(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    std::vector<Token> out;
    int line = 1;
    const auto word = [&](std::size_t& at) {
        const std::size_t start = at;
        while (at < text.size() && IsNameByte(text[at]))
            ++at;
        return text.substr(start, at - start);
    };
    for (std::size_t at = 0; at < text.size();) {
        const char c = text[at];
        const auto digit = [&](std::size_t i) {
            return i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]));
        };
        Token t{c, "", 0, line};
        if (c == ' ' || c == '\t' || c == '\r') {
            ++at;
            continue;
        }
        if (text.compare(at, 2, "--") == 0) {
            at = text.find('\n', at);
            continue;
        }
        if (c == '\n') {
            ++line, ++at;
        } else if (c == '"' || text.compare(at, 2, "@\"") == 0) {
            // MAXScript's escapes in a plain literal, none in a verbatim one.
            t.kind = 's';
            const bool verbatim = c == '@';
            for (at += verbatim ? 2 : 1; at < text.size() && text[at] != '"'; ++at) {
                line += text[at] == '\n';
                if (verbatim || text[at] != '\\' || at + 1 >= text.size()) {
                    t.text += text[at];
                    continue;
                }
                const char e = text[++at];
                if (std::string("\"\\*?%").find(e) != std::string::npos)
                    t.text += e;
                else
                    t.text += '\\', --at; // any other stays; no name the tests use holds a line end
            }
            if (at++ >= text.size())
                throw MaxScriptError(t.line, "the string is not closed");
        } else if (c == '$' || c == '#') {
            ++at;
            t.text = word(at);
        } else if (digit(at) || (c == '-' && digit(at + 1))) {
            std::size_t used = 0;
            t.kind = 'n';
            t.number = std::stod(text.substr(at, 40), &used);
            at += used;
        } else if (std::isalpha(static_cast<unsigned char>(c)) || c == '_') {
            t.kind = 'a';
            t.text = Lower(word(at));
            if (at < text.size() && text[at] == ':')
                t.kind = 'k', ++at;
        } else if (text.compare(at, 2, "==") == 0) {
            t.kind = 'q';
            at += 2;
        } else if (std::string("()[],.=+").find(c) != std::string::npos) {
            ++at;
        } else {
            throw MaxScriptError(line, std::string("unexpected character ") + c);
        }
        out.push_back(t);
    }
    out.push_back({'E', "", 0, line});
    return out;
}

struct Value {
    enum Kind { Undefined, Bool, Number, String, Node, Array, Point, Turn, Name } kind = Undefined;
    bool b = false;
    double n = 0; // a number, or a turn's angle
    std::string s = {};
    int node = -1;
    std::shared_ptr<std::vector<Value>> array = {};
    std::array<double, 3> p{}; // a point, or a turn's axis
};

const std::set<std::string> kFunctions = {
    "clearlistener", "max",       "mergemaxfile",  "copy",           "instance",
    "rotate",        "angleaxis", "doesfileexist", "clearselection", "select",
    "append",        "stricmp",   "messagebox",    "redrawviews"};

// Runs the script as it reads it. A part that is not run (a branch not taken, a loop
// body past its last item) is read all the same, so a syntax error anywhere stops it.
class Interpreter {
public:
    Interpreter(MaxScene& scene, std::vector<Token> tokens)
        : scene_(scene), t_(std::move(tokens)), scopes_(1)
    {
        for (const MaxNode& node : scene.nodes)
            nextMesh_ = std::max(nextMesh_, node.mesh + 1);
    }

    void Program()
    {
        for (Skip(); !Is('E'); Skip()) {
            Expression(true);
            if (!Is('\n') && !Is('E'))
                throw Error("expected the end of the line");
        }
    }

private:
    bool Is(char kind) const { return t_[at_].kind == kind; }
    bool IsWord(const char* w) const { return Is('a') && t_[at_].text == w; }
    MaxScriptError Error(const std::string& why) const { return {t_[at_].line, why}; }
    int Line() const { return t_[at_].line; }
    void Skip()
    {
        while (Is('\n'))
            ++at_;
    }
    void Expect(bool found, const char* what)
    {
        if (!found)
            throw Error(std::string("expected ") + what);
        ++at_;
    }
    template <class T> T Check(bool run, bool ok, const char* why, T value)
    {
        if (run && !ok)
            throw Error(why);
        return value;
    }
    bool Truth(bool run)
    {
        const Value v = Logic(run);
        return Check(run, v.kind == Value::Bool, "expected true or false", v.b);
    }

    Value Expression(bool run)
    {
        Skip();
        if (IsWord("local")) {
            ++at_;
            const std::string name = t_[at_].text;
            Expect(Is('a'), "a name");
            Value v;
            if (Is('='))
                ++at_, v = Expression(run);
            if (run)
                scopes_.back()[name] = v;
            return v;
        }
        if (IsWord("if")) {
            ++at_;
            const bool yes = Truth(run);
            if (IsWord("do"))
                return ++at_, Expression(run && yes);
            Expect(IsWord("then"), "then");
            Value v = Expression(run && yes);
            if (IsWord("else")) {
                ++at_;
                const Value other = Expression(run && !yes);
                if (!yes)
                    v = other;
            }
            return v;
        }
        if (IsWord("for"))
            return For(run);
        if (IsWord("with")) { // with undo off, redraw off
            bool undoOff = undoOff_;
            do {
                ++at_;
                const std::string context = t_[at_].text, state = t_[at_ + 1].text;
                Check(true, context == "undo" || context == "redraw", "expected a context", 0);
                Check(true, state == "on" || state == "off", "expected on or off", 0);
                undoOff = context == "undo" ? state == "off" : undoOff;
                at_ += 2;
            } while (Is(','));
            const bool outer = undoOff_;
            undoOff_ = run ? undoOff : outer;
            const Value v = Expression(run);
            undoOff_ = outer;
            return v;
        }
        // name = ..., name.prop = ..., $path.prop = ...
        const bool named = Is('a') || Is('$');
        if (named && t_[at_ + 1].kind == '=' && Is('a'))
            return Assign(run, t_[at_].text, nullptr);
        if (named && at_ + 3 < t_.size() && t_[at_ + 1].kind == '.' && t_[at_ + 2].kind == 'a' &&
            t_[at_ + 3].kind == '=') {
            const Value owner = Primary(run);
            ++at_;
            const std::string property = t_[at_].text;
            return Assign(run, property, &owner);
        }
        return Logic(run);
    }

    Value Assign(bool run, const std::string& name, const Value* owner)
    {
        at_ += 2;
        const int line = Line();
        const Value v = Expression(run);
        if (!run)
            return v;
        if (!owner) {
            for (auto s = scopes_.rbegin(); s != scopes_.rend(); ++s)
                if (auto it = s->find(name); it != s->end())
                    return it->second = v;
            return scopes_.front()[name] = v;
        }
        if (owner->kind != Value::Node || v.kind != Value::Point ||
            (name != "pos" && name != "scale"))
            throw MaxScriptError(line, "cannot set " + name);
        MaxNode& node = scene_.nodes[std::size_t(owner->node)];
        (name == "pos" ? node.pos : node.scale) = v.p;
        return v;
    }

    Value For(bool run)
    {
        ++at_;
        const std::string name = t_[at_].text;
        Expect(Is('a'), "a name");
        Expect(IsWord("in"), "in");
        const Value items = Operand(run);
        Check(run, items.kind == Value::Array, "for needs a collection", 0);
        const std::size_t start = at_;
        const auto pass = [&](bool go, const Value& item) {
            at_ = start;
            scopes_.push_back({{name, item}});
            bool where = true;
            if (IsWord("where"))
                ++at_, where = Truth(go);
            Expect(IsWord("do"), "do");
            Expression(go && where);
            scopes_.pop_back();
        };
        const std::vector<Value> each = run ? *items.array : std::vector<Value>();
        for (const Value& item : each)
            pass(true, item);
        if (each.empty())
            pass(false, Value());
        return Value();
    }

    Value Logic(bool run)
    {
        Value left = Compare(run);
        while (IsWord("and")) {
            ++at_;
            const bool first = left.kind == Value::Bool && left.b;
            Check(run, left.kind == Value::Bool, "expected true or false", 0);
            const Value right = Compare(run && first);
            Check(run && first, right.kind == Value::Bool, "expected true or false", 0);
            left = {.kind = Value::Bool, .b = first && right.b};
        }
        return left;
    }

    Value Compare(bool run)
    {
        const Value a = Sum(run);
        if (!Is('q'))
            return a;
        ++at_;
        const Value b = Sum(run);
        return {.kind = Value::Bool,
                .b = a.kind == b.kind && a.node == b.node && a.n == b.n && a.s == b.s &&
                     a.b == b.b && a.kind != Value::Array};
    }

    Value Sum(bool run)
    {
        Value a = Cast(run);
        while (Is('+')) {
            ++at_;
            const Value b = Cast(run);
            Check(run, a.kind == Value::String && b.kind == Value::String,
                  "+ needs two strings here", 0);
            a.s += b.s;
        }
        return a;
    }

    Value Cast(bool run)
    {
        const Value v = Is('a') && kFunctions.count(t_[at_].text) ? Call(run) : Operand(run);
        if (!IsWord("as"))
            return v;
        ++at_;
        const bool array = IsWord("array");
        Expect(Is('a'), "a class");
        Check(run, array && v.kind == Value::Array, "cannot convert", 0);
        Value copy = v;
        if (run)
            copy.array = std::make_shared<std::vector<Value>>(*v.array);
        return copy;
    }

    // Whether the next token starts an argument of a call on the same line.
    bool StartsArgument() const
    {
        if (Is('a'))
            for (const char* stop : {"then", "else", "do", "and", "as", "where", "in"})
                if (t_[at_].text == stop)
                    return false;
        return std::string("ans$#([k").find(t_[at_].kind) != std::string::npos;
    }

    Value Call(bool run)
    {
        const std::string f = t_[at_++].text;
        const int line = Line();
        std::vector<Value> args;
        std::map<std::string, Value> keys;
        if (Is('(') && t_[at_ + 1].kind == ')')
            at_ += 2;
        else
            while (StartsArgument()) {
                if (Is('k')) {
                    const std::string key = t_[at_++].text;
                    keys[key] = Operand(run);
                } else {
                    args.push_back(Operand(run));
                }
            }
        return run ? Run(f, args, keys, line) : Value();
    }

    Value Operand(bool run)
    {
        Value v = Primary(run);
        while (Is('.')) {
            ++at_;
            const std::string p = t_[at_].text;
            Expect(Is('a'), "a property");
            v = Property(run, v, p);
        }
        return v;
    }

    Value Primary(bool run)
    {
        const Token& t = t_[at_++];
        Value v;
        switch (t.kind) {
        case 'n':
            return {.kind = Value::Number, .n = t.number};
        case 's':
            return {.kind = Value::String, .s = t.text};
        case '$':
            for (std::size_t i = 0; i < scene_.nodes.size(); ++i)
                if (run && Lower(scene_.nodes[i].name) == Lower(t.text))
                    return NodeValue(int(i));
            return v;
        case '#':
            if (!t.text.empty())
                return {.kind = Value::Name, .s = t.text};
            Expect(Is('('), "(");
            Expect(Is(')'), ")");
            return {.kind = Value::Array, .array = std::make_shared<std::vector<Value>>()};
        case '[':
            v = {.kind = Value::Point};
            for (std::size_t i = 0; i < 3; ++i) {
                const Value n = Expression(run);
                v.p[i] = Check(run, n.kind == Value::Number, "expected a number", n.n);
                Expect(Is(i < 2 ? ',' : ']'), i < 2 ? "," : "]");
            }
            return v;
        case '(':
            if (run)
                scopes_.emplace_back();
            for (Skip(); !Is(')'); Skip()) {
                if (Is('E'))
                    throw Error("the block is not closed");
                v = Expression(run);
                if (!Is('\n') && !Is(')'))
                    throw Error("expected the end of the line");
            }
            ++at_;
            if (run)
                scopes_.pop_back();
            return v;
        case 'a':
            return Lookup(t.text);
        }
        --at_;
        throw Error("expected a value");
    }

    static Value NodeValue(int index) { return {.kind = Value::Node, .node = index}; }

    Value Lookup(const std::string& name)
    {
        Value v;
        if (name == "true" || name == "on" || name == "false" || name == "off") {
            v = {.kind = Value::Bool, .b = name == "true" || name == "on"};
        } else if (name == "selection") {
            v = {.kind = Value::Array, .array = std::make_shared<std::vector<Value>>()};
            for (std::size_t i = 0; i < scene_.nodes.size(); ++i)
                if (scene_.nodes[i].selected)
                    v.array->push_back(NodeValue(int(i)));
        } else if (name != "undefined") {
            for (auto s = scopes_.rbegin(); s != scopes_.rend(); ++s)
                if (auto it = s->find(name); it != s->end())
                    return it->second;
            v = {.kind = Value::Name, .s = name}; // a bare word such as "move"
        }
        return v;
    }

    Value Property(bool run, const Value& owner, const std::string& p)
    {
        if (!run)
            return Value();
        Value v;
        if (owner.kind != Value::Node) {
            throw MaxScriptError(Line(), "unknown property " + p + " of undefined");
        } else if (const MaxNode& node = scene_.nodes[std::size_t(owner.node)]; p == "name") {
            v = {.kind = Value::String, .s = node.name};
        } else {
            throw MaxScriptError(Line(), "unknown property " + p);
        }
        return v;
    }

    const std::vector<std::string>* FileOf(const std::string& path)
    {
        for (const auto& [file, objects] : scene_.library)
            if (Lower(file) == Lower(path))
                return &objects;
        return nullptr;
    }

    int MakeNode(MaxNode node)
    {
        node.madeWithUndoOff = undoOff_;
        scene_.nodes.push_back(std::move(node));
        return int(scene_.nodes.size()) - 1;
    }

    Value Run(const std::string& f, const std::vector<Value>& args,
              std::map<std::string, Value>& keys, int line)
    {
        const auto arg = [&](std::size_t i, Value::Kind kind) -> const Value& {
            if (i >= args.size() || args[i].kind != kind)
                throw MaxScriptError(line, f + " needs other arguments");
            return args[i];
        };
        Value v;
        if (f == "clearselection" || f == "select")
            for (MaxNode& node : scene_.nodes)
                node.selected = false;
        if (f == "doesfileexist" || f == "mergemaxfile") {
            const std::vector<std::string>* objects = FileOf(arg(0, Value::String).s);
            v = {.kind = Value::Bool, .b = objects != nullptr};
            bool select = false;
            for (std::size_t i = 1; i < args.size(); ++i)
                select = select || Lower(args[i].s) == "select";
            for (MaxNode& node : scene_.nodes)
                node.selected = node.selected && !(select && objects && f == "mergemaxfile");
            for (std::size_t i = 0; f == "mergemaxfile" && objects && i < objects->size(); ++i) {
                MaxNode node;
                node.name = (*objects)[i];
                node.mesh = nextMesh_++;
                node.selected = select;
                MakeNode(node);
            }
        } else if (f == "copy" || f == "instance") {
            MaxNode made = scene_.nodes[std::size_t(arg(0, Value::Node).node)];
            made.mesh = f == "copy" ? nextMesh_++ : made.mesh;
            made.name = keys.count("name") ? keys["name"].s : made.name;
            made.selected = keys.count("isselected") && keys["isselected"].b;
            v = NodeValue(MakeNode(made));
        } else if (f == "angleaxis") {
            v = {.kind = Value::Turn, .n = arg(0, Value::Number).n, .p = arg(1, Value::Point).p};
        } else if (f == "rotate") {
            Turn(scene_.nodes[std::size_t(arg(0, Value::Node).node)], arg(1, Value::Turn));
        } else if (f == "append") {
            arg(0, Value::Array).array->push_back(args.at(1));
            v = args[0];
        } else if (f == "select") {
            for (const Value& item : *arg(0, Value::Array).array)
                if (item.kind == Value::Node)
                    scene_.nodes[std::size_t(item.node)].selected = true;
        } else if (f == "stricmp") {
            v = {.kind = Value::Number,
                 .n = Lower(arg(0, Value::String).s) == Lower(arg(1, Value::String).s) ? 0.0 : 1.0};
        } else if (f == "messagebox") {
            scene_.messageBoxes.push_back(arg(0, Value::String).s);
        }
        return v;
    }

    // The turn about the axis through the node's pivot, in world axes, in front of
    // the turns it has.
    static void Turn(MaxNode& node, const Value& turn)
    {
        double x = turn.p[0], y = turn.p[1], z = turn.p[2];
        const double length = std::sqrt(x * x + y * y + z * z);
        x /= length, y /= length, z /= length;
        const double a = turn.n * std::acos(-1.0) / 180, c = std::cos(a), s = std::sin(a),
                     t = 1 - c;
        const std::array<double, 9> r{t * x * x + c,     t * x * y - s * z, t * x * z + s * y,
                                      t * x * y + s * z, t * y * y + c,     t * y * z - s * x,
                                      t * x * z - s * y, t * y * z + s * x, t * z * z + c};
        std::array<double, 9> out{};
        for (std::size_t i = 0; i < 3; ++i)
            for (std::size_t j = 0; j < 3; ++j)
                for (std::size_t k = 0; k < 3; ++k)
                    out[3 * i + j] += r[3 * i + k] * node.rotation[3 * k + j];
        node.rotation = out;
    }

    MaxScene& scene_;
    std::vector<Token> t_;
    std::size_t at_ = 0;
    std::vector<std::map<std::string, Value>> scopes_;
    bool undoOff_ = false;
    int nextMesh_ = 1;
};

} // namespace

void MaxScene::Run(const std::vector<std::string>& lines)
{
    Interpreter(*this, Tokens(lines)).Program();
}

} // namespace tos::test
