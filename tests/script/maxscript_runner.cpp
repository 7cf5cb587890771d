#include "maxscript_runner.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>
#include <functional>
#include <memory>
#include <optional>
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

// ---- Tokens ----

// clang-format off
enum class T { Name, Keyword, Number, String, Path, Hash, LParen, RParen, LBracket, RBracket,
               Comma, Dot, Assign, Eq, Ne, Plus, Newline, End };
// clang-format on

// A pathname's level name: each character and whether a wildcard stands for itself.
struct PatternChar {
    char c;
    bool literal;
};

struct Token {
    T t;
    std::string text;
    double number = 0;
    std::vector<PatternChar> pattern;
    bool quoted = false;
    int line = 0;
};

class Lexer {
public:
    explicit Lexer(const std::vector<std::string>& lines)
    {
        for (const std::string& line : lines)
            text_ += line + "\n";
    }

    std::vector<Token> Tokens()
    {
        std::vector<Token> out;
        while (at_ < text_.size()) {
            const char c = text_[at_];
            const auto add = [&](T t, std::string s = "") {
                out.push_back({t, std::move(s), 0, {}, false, line_});
            };
            if (c == ' ' || c == '\t' || c == '\r') {
                ++at_;
            } else if (c == '\n') {
                add(T::Newline);
                ++at_;
                ++line_;
            } else if (Starts("--")) {
                while (at_ < text_.size() && text_[at_] != '\n')
                    ++at_;
            } else if (c == '"' || Starts("@\"")) {
                const int line = line_;
                add(T::String, c == '@' ? Verbatim() : Plain());
                out.back().line = line;
            } else if (c == '$') {
                ++at_;
                add(T::Path);
                out.back().quoted = at_ < text_.size() && text_[at_] == '\'';
                out.back().pattern = PathName();
            } else if (c == '#') {
                ++at_;
                add(T::Hash, Word());
            } else if (std::isdigit(static_cast<unsigned char>(c)) ||
                       (c == '-' && at_ + 1 < text_.size() &&
                        std::isdigit(static_cast<unsigned char>(text_[at_ + 1])))) {
                std::size_t used = 0;
                add(T::Number);
                out.back().number = std::stod(text_.substr(at_), &used);
                at_ += used;
            } else if (std::isalpha(static_cast<unsigned char>(c)) || c == '_') {
                std::string word = Word();
                if (at_ < text_.size() && text_[at_] == ':') {
                    ++at_;
                    add(T::Keyword, Lower(word));
                } else {
                    add(T::Name, Lower(word));
                }
            } else if (Starts("==") || Starts("!=")) {
                add(c == '=' ? T::Eq : T::Ne);
                at_ += 2;
            } else {
                static const std::string kPunct = "()[],.=+";
                static const T kTypes[] = {T::LParen, T::RParen, T::LBracket, T::RBracket,
                                           T::Comma,  T::Dot,    T::Assign,   T::Plus};
                const std::size_t p = kPunct.find(c);
                if (p == std::string::npos)
                    throw MaxScriptError(line_, std::string("unexpected character ") + c);
                add(kTypes[p]);
                ++at_;
            }
        }
        out.push_back({T::End, "", 0, {}, false, line_});
        return out;
    }

private:
    bool Starts(const char* s) const { return text_.compare(at_, std::strlen(s), s) == 0; }

    std::string Word()
    {
        const std::size_t start = at_;
        while (at_ < text_.size() && IsNameByte(text_[at_]))
            ++at_;
        return text_.substr(start, at_ - start);
    }

    // A plain literal: MAXScript's escapes; it may run over several lines.
    std::string Plain()
    {
        std::string s;
        for (++at_; at_ < text_.size(); ++at_) {
            char c = text_[at_];
            if (c == '"')
                return ++at_, s;
            if (c == '\n')
                ++line_;
            if (c != '\\' || at_ + 1 >= text_.size()) {
                s += c;
                continue;
            }
            const char e = text_[++at_];
            if (e == 'x' && at_ + 1 < text_.size() &&
                std::isxdigit(static_cast<unsigned char>(text_[at_ + 1]))) {
                int v = 0;
                while (at_ + 1 < text_.size() &&
                       std::isxdigit(static_cast<unsigned char>(text_[at_ + 1])))
                    v = (v * 16 + std::stoi(std::string(1, text_[++at_]), nullptr, 16)) & 0xFF;
                s += static_cast<char>(v);
            } else if (std::string("\"\\*?%").find(e) != std::string::npos) {
                s += e;
            } else if (e == 'n' || e == 'r' || e == 't') {
                s += e == 'n' ? '\n' : e == 'r' ? '\r' : '\t';
            } else {
                s += '\\';
                --at_;
            }
        }
        throw MaxScriptError(line_, "the string is not closed");
    }

    std::string Verbatim()
    {
        at_ += 2;
        const std::size_t end = text_.find('"', at_);
        if (end == std::string::npos)
            throw MaxScriptError(line_, "the string is not closed");
        std::string s = text_.substr(at_, end - at_);
        at_ = end + 1;
        return s;
    }

    // The level name behind $: letters, digits, _ and the wildcards, or anything
    // between single quotes; a backslash makes the next character stand for itself.
    std::vector<PatternChar> PathName()
    {
        std::vector<PatternChar> pattern;
        const bool quoted = at_ < text_.size() && text_[at_] == '\'';
        if (quoted)
            ++at_;
        while (at_ < text_.size()) {
            const char c = text_[at_];
            if (quoted ? c == '\'' : !(IsNameByte(c) || c == '*' || c == '?' || c == '\\'))
                break;
            if (c == '\n')
                break;
            if (c == '\\' && at_ + 1 < text_.size()) {
                pattern.push_back({text_[at_ + 1], true});
                at_ += 2;
                continue;
            }
            pattern.push_back({c, !(c == '*' || c == '?')});
            ++at_;
        }
        if (quoted) {
            if (at_ >= text_.size() || text_[at_] != '\'')
                throw MaxScriptError(line_, "the quoted name is not closed");
            ++at_;
        }
        return pattern;
    }

    std::string text_;
    std::size_t at_ = 0;
    int line_ = 1;
};

// ---- Syntax ----

struct Expr;
using ExprPtr = std::unique_ptr<Expr>;

struct Expr {
    // clang-format off
    enum Kind { Num, Str, Path, Hash, EmptyArray, Point, Block, Local, Assign, If, For, Context,
                And, Eq, Ne, Plus, As, Call, Ref, Prop } kind;
    // clang-format on
    int line = 0;
    std::string text; // names, strings, properties
    double number = 0;
    std::vector<PatternChar> pattern;
    bool quoted = false;
    bool flag = false; // If: the "do" form; Context: undo off
    bool redrawOff = false;
    std::vector<ExprPtr> kids;
    std::vector<std::pair<std::string, ExprPtr>> keys;
};

const std::set<std::string> kFunctions = {
    "clearlistener", "max",       "mergemaxfile",  "copy",           "instance",
    "rotate",        "angleaxis", "doesfileexist", "clearselection", "select",
    "append",        "stricmp",   "messagebox",    "redrawviews"};

class Parser {
public:
    explicit Parser(std::vector<Token> tokens) : t_(std::move(tokens)) {}

    ExprPtr Program()
    {
        auto block = Make(Expr::Block);
        while (true) {
            SkipNewlines();
            if (Is(T::End))
                return block;
            block->kids.push_back(Expression());
            if (!Is(T::Newline) && !Is(T::End))
                throw Error("expected the end of the line");
        }
    }

private:
    const Token& Peek() const { return t_[at_]; }
    bool Is(T t) const { return Peek().t == t; }
    bool IsWord(const char* w) const { return Is(T::Name) && Peek().text == w; }
    Token Take() { return t_[at_++]; }
    MaxScriptError Error(const std::string& why) const { return MaxScriptError(Peek().line, why); }
    void SkipNewlines()
    {
        while (Is(T::Newline))
            ++at_;
    }
    void Expect(T t, const char* what)
    {
        if (!Is(t))
            throw Error(std::string("expected ") + what);
        ++at_;
    }
    void ExpectWord(const char* w)
    {
        if (!IsWord(w))
            throw Error(std::string("expected ") + w);
        ++at_;
    }
    ExprPtr Make(Expr::Kind k)
    {
        auto e = std::make_unique<Expr>();
        e->kind = k;
        e->line = Peek().line;
        return e;
    }

    ExprPtr Expression()
    {
        SkipNewlines();
        if (IsWord("local")) {
            ++at_;
            auto e = Make(Expr::Local);
            if (!Is(T::Name))
                throw Error("expected a name");
            e->text = Take().text;
            if (Is(T::Assign)) {
                ++at_;
                e->kids.push_back(Expression());
            }
            return e;
        }
        if (IsWord("if")) {
            auto e = Make(Expr::If);
            ++at_;
            e->kids.push_back(Expression());
            if (IsWord("do")) {
                ++at_;
                e->flag = true;
                e->kids.push_back(Expression());
                return e;
            }
            ExpectWord("then");
            e->kids.push_back(Expression());
            if (IsWord("else")) {
                ++at_;
                e->kids.push_back(Expression());
            }
            return e;
        }
        if (IsWord("for")) {
            auto e = Make(Expr::For);
            ++at_;
            e->text = Take().text;
            ExpectWord("in");
            e->kids.push_back(Operand());
            ExprPtr where;
            if (IsWord("where")) {
                ++at_;
                where = Expression();
            }
            ExpectWord("do");
            e->kids.push_back(Expression());
            e->kids.push_back(std::move(where));
            return e;
        }
        if (IsWord("with") || IsWord("undo") || IsWord("redraw")) {
            auto e = Make(Expr::Context);
            do {
                if (IsWord("with"))
                    ++at_;
                const bool undo = IsWord("undo");
                if (!undo && !IsWord("redraw"))
                    throw Error("expected a context");
                ++at_;
                const bool off = IsWord("off") || IsWord("false");
                if (!off && !IsWord("on") && !IsWord("true"))
                    throw Error("expected on or off");
                ++at_;
                (undo ? e->flag : e->redrawOff) = off;
            } while (Is(T::Comma) && (++at_, true));
            e->kids.push_back(Expression());
            return e;
        }
        ExprPtr left = Logic();
        if (Is(T::Assign)) {
            if (left->kind != Expr::Ref && left->kind != Expr::Prop)
                throw Error("cannot assign to this");
            auto e = Make(Expr::Assign);
            ++at_;
            e->kids.push_back(std::move(left));
            e->kids.push_back(Expression());
            return e;
        }
        return left;
    }

    ExprPtr Binary(Expr::Kind kind, ExprPtr left, ExprPtr right)
    {
        auto e = Make(kind);
        e->kids.push_back(std::move(left));
        e->kids.push_back(std::move(right));
        return e;
    }

    ExprPtr Logic()
    {
        ExprPtr left = Compare();
        while (IsWord("and")) {
            ++at_;
            left = Binary(Expr::And, std::move(left), Compare());
        }
        return left;
    }

    ExprPtr Compare()
    {
        ExprPtr left = Sum();
        if (Is(T::Eq) || Is(T::Ne)) {
            const Expr::Kind k = Is(T::Eq) ? Expr::Eq : Expr::Ne;
            ++at_;
            return Binary(k, std::move(left), Sum());
        }
        return left;
    }

    ExprPtr Sum()
    {
        ExprPtr left = AsCast();
        while (Is(T::Plus)) {
            ++at_;
            left = Binary(Expr::Plus, std::move(left), AsCast());
        }
        return left;
    }

    ExprPtr AsCast()
    {
        ExprPtr e = CallOrOperand();
        if (IsWord("as")) {
            ++at_;
            auto cast = Make(Expr::As);
            cast->text = Take().text;
            cast->kids.push_back(std::move(e));
            return cast;
        }
        return e;
    }

    // Whether the next token starts an argument of a call on the same line.
    bool StartsOperand() const
    {
        switch (Peek().t) {
        case T::Number:
        case T::String:
        case T::Path:
        case T::Hash:
        case T::LParen:
        case T::LBracket:
        case T::Keyword:
            return true;
        case T::Name:
            for (const char* stop : {"then", "else", "do", "and", "as", "where", "in"})
                if (Peek().text == stop)
                    return false;
            return true;
        default:
            return false;
        }
    }

    ExprPtr CallOrOperand()
    {
        if (Is(T::Name) && kFunctions.count(Peek().text)) {
            auto call = Make(Expr::Call);
            call->text = Take().text;
            if (Is(T::LParen) && t_[at_ + 1].t == T::RParen) {
                at_ += 2;
                return call;
            }
            while (StartsOperand()) {
                if (Is(T::Keyword)) {
                    std::string key = Take().text;
                    call->keys.emplace_back(std::move(key), Operand());
                } else {
                    call->kids.push_back(Operand());
                }
            }
            return call;
        }
        ExprPtr e = Operand();
        // Juxtaposition calls what stands in front; none of these is a function.
        if (StartsOperand())
            throw Error("call needs a function");
        return e;
    }

    ExprPtr Operand()
    {
        SkipNewlines();
        ExprPtr e;
        const Token token = Peek();
        switch (token.t) {
        case T::Number:
            e = Make(Expr::Num);
            e->number = Take().number;
            break;
        case T::String:
            e = Make(Expr::Str);
            e->text = Take().text;
            break;
        case T::Path:
            e = Make(Expr::Path);
            e->pattern = token.pattern;
            e->quoted = token.quoted;
            ++at_;
            break;
        case T::Hash:
            ++at_;
            if (token.text.empty()) { // #( ... ), only empty here
                e = Make(Expr::EmptyArray);
                Expect(T::LParen, "(");
                Expect(T::RParen, ")");
            } else {
                e = Make(Expr::Hash);
                e->text = token.text;
            }
            break;
        case T::LBracket:
            ++at_;
            e = Make(Expr::Point);
            for (int i = 0; i < 3; ++i) {
                e->kids.push_back(Expression());
                Expect(i < 2 ? T::Comma : T::RBracket, i < 2 ? "," : "]");
            }
            break;
        case T::LParen:
            ++at_;
            e = Make(Expr::Block);
            for (SkipNewlines(); !Is(T::RParen); SkipNewlines()) {
                if (Is(T::End))
                    throw Error("the block is not closed");
                e->kids.push_back(Expression());
                if (!Is(T::Newline) && !Is(T::RParen))
                    throw Error("expected the end of the line");
            }
            ++at_;
            break;
        case T::Name:
            e = Make(Expr::Ref);
            e->text = Take().text;
            break;
        default:
            throw Error("expected a value");
        }
        while (Is(T::Dot)) {
            ++at_;
            auto prop = Make(Expr::Prop);
            if (!Is(T::Name))
                throw Error("expected a property");
            prop->text = Take().text;
            prop->kids.push_back(std::move(e));
            e = std::move(prop);
        }
        return e;
    }

    std::vector<Token> t_;
    std::size_t at_ = 0;
};

// ---- Values and evaluation ----

struct Value {
    // clang-format off
    enum Kind { Undefined, Bool, Number, String, Node, Array, Point, Rotation, Name } kind =
        Undefined;
    // clang-format on
    bool b = false;
    double n = 0;
    std::string s;
    int node = -1;
    std::shared_ptr<std::vector<Value>> array;
    std::array<double, 3> p{};
};

Value Bool(bool b)
{
    Value v;
    v.kind = Value::Bool;
    v.b = b;
    return v;
}

bool Matches(const std::vector<PatternChar>& pattern, bool quoted, const std::string& name,
             std::size_t i = 0, std::size_t j = 0)
{
    if (i == pattern.size())
        return j == name.size();
    const PatternChar pc = pattern[i];
    if (!pc.literal && pc.c == '*')
        return Matches(pattern, quoted, name, i + 1, j) ||
               (j < name.size() && Matches(pattern, quoted, name, i, j + 1));
    if (j == name.size())
        return false;
    const bool same = (!pc.literal && pc.c == '?') ||
                      Lower(std::string(1, pc.c)) == Lower(std::string(1, name[j])) ||
                      (!quoted && pc.c == '_' && name[j] == ' ');
    return same && Matches(pattern, quoted, name, i + 1, j + 1);
}

class Evaluator {
public:
    explicit Evaluator(MaxScene& scene) : scene_(scene)
    {
        scopes_.emplace_back();
        for (const MaxNode& node : scene.nodes)
            nextMesh_ = std::max(nextMesh_, node.mesh + 1);
    }

    Value Eval(const Expr& e)
    {
        switch (e.kind) {
        case Expr::Num: {
            Value v;
            v.kind = Value::Number;
            v.n = e.number;
            return v;
        }
        case Expr::Str:
        case Expr::Hash: {
            Value v;
            v.kind = e.kind == Expr::Str ? Value::String : Value::Name;
            v.s = e.text;
            return v;
        }
        case Expr::Path:
            return PathValue(e);
        case Expr::EmptyArray:
            return ArrayOf({});
        case Expr::Point: {
            Value v;
            v.kind = Value::Point;
            for (int i = 0; i < 3; ++i)
                v.p[static_cast<std::size_t>(i)] = NumberOf(*e.kids[static_cast<std::size_t>(i)]);
            return v;
        }
        case Expr::Block: {
            scopes_.emplace_back();
            Value last;
            for (const ExprPtr& kid : e.kids)
                last = Eval(*kid);
            scopes_.pop_back();
            return last;
        }
        case Expr::Local: {
            Value v = e.kids.empty() ? Value() : Eval(*e.kids[0]);
            scopes_.back()[e.text] = v;
            return v;
        }
        case Expr::Assign:
            return Assign(e);
        case Expr::If: {
            if (Truth(*e.kids[0]))
                return Eval(*e.kids[1]);
            return e.kids.size() > 2 ? Eval(*e.kids[2]) : Value();
        }
        case Expr::For: {
            const Value sequence = Eval(*e.kids[0]);
            if (sequence.kind != Value::Array)
                throw MaxScriptError(e.line, "for needs a collection");
            const std::vector<Value> items = *sequence.array;
            for (const Value& item : items) {
                scopes_.emplace_back();
                scopes_.back()[e.text] = item;
                if (!e.kids[2] || Truth(*e.kids[2]))
                    Eval(*e.kids[1]);
                scopes_.pop_back();
            }
            return Value();
        }
        case Expr::Context: {
            const bool undoOff = undoOff_;
            if (e.flag)
                undoOff_ = true;
            Value v = Eval(*e.kids[0]);
            undoOff_ = undoOff;
            return v;
        }
        case Expr::And:
            return Bool(Truth(*e.kids[0]) && Truth(*e.kids[1]));
        case Expr::Eq:
        case Expr::Ne: {
            const Value a = Eval(*e.kids[0]), b = Eval(*e.kids[1]);
            const bool same =
                a.kind == b.kind &&
                (a.kind == Value::Undefined || (a.kind == Value::Node && a.node == b.node) ||
                 (a.kind == Value::Number && a.n == b.n) ||
                 (a.kind == Value::String && a.s == b.s) || (a.kind == Value::Bool && a.b == b.b));
            return Bool(e.kind == Expr::Eq ? same : !same);
        }
        case Expr::Plus: {
            Value a = Eval(*e.kids[0]);
            const Value b = Eval(*e.kids[1]);
            if (a.kind != Value::String || b.kind != Value::String)
                throw MaxScriptError(e.line, "+ needs two strings here");
            a.s += b.s;
            return a;
        }
        case Expr::As: {
            Value v = Eval(*e.kids[0]);
            if (e.text != "array" || v.kind != Value::Array)
                throw MaxScriptError(e.line, "cannot convert");
            return ArrayOf(*v.array);
        }
        case Expr::Call:
            return Call(e);
        case Expr::Ref:
            return Lookup(e);
        case Expr::Prop:
            return Property(e);
        }
        return Value();
    }

private:
    Value ArrayOf(std::vector<Value> items)
    {
        Value v;
        v.kind = Value::Array;
        v.array = std::make_shared<std::vector<Value>>(std::move(items));
        return v;
    }

    Value NodeValue(int index)
    {
        Value v;
        v.kind = Value::Node;
        v.node = index;
        return v;
    }

    double NumberOf(const Expr& e)
    {
        const Value v = Eval(e);
        if (v.kind != Value::Number)
            throw MaxScriptError(e.line, "expected a number");
        return v.n;
    }

    bool Truth(const Expr& e)
    {
        const Value v = Eval(e);
        if (v.kind != Value::Bool)
            throw MaxScriptError(e.line, "expected true or false");
        return v.b;
    }

    MaxNode& NodeOf(const Expr& e)
    {
        const Value v = Eval(e);
        if (v.kind != Value::Node)
            throw MaxScriptError(e.line, "expected a node, got something else or undefined");
        return scene_.nodes[static_cast<std::size_t>(v.node)];
    }

    Value PathValue(const Expr& e)
    {
        for (std::size_t i = 0; i < scene_.nodes.size(); ++i)
            if (Matches(e.pattern, e.quoted, scene_.nodes[i].name))
                return NodeValue(static_cast<int>(i));
        return Value();
    }

    Value Lookup(const Expr& e)
    {
        if (e.text == "true" || e.text == "on")
            return Bool(true);
        if (e.text == "false" || e.text == "off")
            return Bool(false);
        if (e.text == "undefined")
            return Value();
        if (e.text == "selection") {
            std::vector<Value> selected;
            for (std::size_t i = 0; i < scene_.nodes.size(); ++i)
                if (scene_.nodes[i].selected)
                    selected.push_back(NodeValue(static_cast<int>(i)));
            return ArrayOf(selected);
        }
        for (auto s = scopes_.rbegin(); s != scopes_.rend(); ++s)
            if (auto it = s->find(e.text); it != s->end())
                return it->second;
        Value name; // a bare word such as "move"
        name.kind = Value::Name;
        name.s = e.text;
        return name;
    }

    Value Property(const Expr& e)
    {
        const Value owner = Eval(*e.kids[0]);
        if (owner.kind == Value::Array && e.text == "count") {
            Value v;
            v.kind = Value::Number;
            v.n = static_cast<double>(owner.array->size());
            return v;
        }
        if (owner.kind != Value::Node)
            throw MaxScriptError(e.line, "unknown property " + e.text + " of undefined");
        const MaxNode& node = scene_.nodes[static_cast<std::size_t>(owner.node)];
        Value v;
        if (e.text == "name") {
            v.kind = Value::String;
            v.s = node.name;
        } else if (e.text == "pos" || e.text == "scale") {
            v.kind = Value::Point;
            v.p = e.text == "pos" ? node.pos : node.scale;
        } else {
            throw MaxScriptError(e.line, "unknown property " + e.text);
        }
        return v;
    }

    Value Assign(const Expr& e)
    {
        const Expr& target = *e.kids[0];
        Value v = Eval(*e.kids[1]);
        if (target.kind == Expr::Ref) {
            for (auto s = scopes_.rbegin(); s != scopes_.rend(); ++s)
                if (auto it = s->find(target.text); it != s->end())
                    return it->second = v;
            return scopes_.front()[target.text] = v;
        }
        MaxNode& node = NodeOf(*target.kids[0]);
        if (v.kind != Value::Point || (target.text != "pos" && target.text != "scale"))
            throw MaxScriptError(e.line, "cannot set " + target.text);
        (target.text == "pos" ? node.pos : node.scale) = v.p;
        return v;
    }

    std::string StringOf(const Expr& e)
    {
        const Value v = Eval(e);
        if (v.kind != Value::String)
            throw MaxScriptError(e.line, "expected a string");
        return v.s;
    }

    const Expr* Key(const Expr& call, const char* key)
    {
        for (const auto& [name, value] : call.keys)
            if (name == key)
                return value.get();
        return nullptr;
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
        return static_cast<int>(scene_.nodes.size()) - 1;
    }

    Value Call(const Expr& e)
    {
        const std::string& f = e.text;
        const auto arg = [&](std::size_t i) -> const Expr& {
            if (i >= e.kids.size())
                throw MaxScriptError(e.line, f + " needs more arguments");
            return *e.kids[i];
        };
        if (f == "clearlistener" || f == "max" || f == "redrawviews")
            return Value();
        if (f == "clearselection") {
            for (MaxNode& node : scene_.nodes)
                node.selected = false;
            return Value();
        }
        if (f == "doesfileexist")
            return Bool(FileOf(StringOf(arg(0))) != nullptr);
        if (f == "mergemaxfile") {
            const std::vector<std::string>* objects = FileOf(StringOf(arg(0)));
            if (!objects)
                return Bool(false);
            bool select = false;
            for (std::size_t i = 1; i < e.kids.size(); ++i)
                select =
                    select || (e.kids[i]->kind == Expr::Hash && Lower(e.kids[i]->text) == "select");
            if (select)
                for (MaxNode& node : scene_.nodes)
                    node.selected = false;
            for (const std::string& name : *objects) {
                MaxNode node;
                node.name = name;
                node.mesh = nextMesh_++;
                node.selected = select;
                MakeNode(node);
            }
            return Bool(true);
        }
        if (f == "copy" || f == "instance") {
            MaxNode made = NodeOf(arg(0));
            made.mesh = f == "copy" ? nextMesh_++ : made.mesh;
            made.selected = false;
            if (const Expr* name = Key(e, "name"))
                made.name = StringOf(*name);
            if (const Expr* selected = Key(e, "isselected"))
                made.selected = Truth(*selected);
            return NodeValue(MakeNode(made));
        }
        if (f == "angleaxis") {
            Value v;
            v.kind = Value::Rotation;
            v.n = NumberOf(arg(0));
            const Value axis = Eval(arg(1));
            if (axis.kind != Value::Point)
                throw MaxScriptError(e.line, "angleaxis needs an axis");
            v.p = axis.p;
            return v;
        }
        if (f == "rotate") {
            MaxNode& node = NodeOf(arg(0));
            const Value turn = Eval(arg(1));
            if (turn.kind != Value::Rotation)
                throw MaxScriptError(e.line, "rotate needs an angleaxis");
            Turn(node, turn);
            return Value();
        }
        if (f == "append") {
            const Value list = Eval(arg(0));
            if (list.kind != Value::Array)
                throw MaxScriptError(e.line, "append needs an array");
            list.array->push_back(Eval(arg(1)));
            return list;
        }
        if (f == "select") {
            const Value chosen = Eval(arg(0));
            if (chosen.kind != Value::Array)
                throw MaxScriptError(e.line, "select needs an array here");
            for (MaxNode& node : scene_.nodes)
                node.selected = false;
            for (const Value& item : *chosen.array)
                if (item.kind == Value::Node)
                    scene_.nodes[static_cast<std::size_t>(item.node)].selected = true;
            return Value();
        }
        if (f == "stricmp") {
            Value v;
            v.kind = Value::Number;
            v.n = Lower(StringOf(arg(0))) == Lower(StringOf(arg(1))) ? 0 : 1;
            return v;
        }
        if (f == "messagebox") {
            scene_.messageBoxes.push_back(StringOf(arg(0)));
            return Value();
        }
        throw MaxScriptError(e.line, "no function " + f);
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
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j)
                for (int k = 0; k < 3; ++k)
                    out[static_cast<std::size_t>(3 * i + j)] +=
                        r[static_cast<std::size_t>(3 * i + k)] *
                        node.rotation[static_cast<std::size_t>(3 * k + j)];
        node.rotation = out;
    }

    MaxScene& scene_;
    std::vector<std::map<std::string, Value>> scopes_;
    bool undoOff_ = false;
    int nextMesh_ = 1;
};

} // namespace

void MaxScene::Run(const std::vector<std::string>& lines)
{
    const ExprPtr program = Parser(Lexer(lines).Tokens()).Program();
    Evaluator(*this).Eval(*program);
}

} // namespace tos::test
