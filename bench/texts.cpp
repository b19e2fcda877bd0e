// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Word lists, and sentences drawn from them.
#include "bench/texts.h"

#include <algorithm>
#include <cstdint>
#include <random>
#include <string_view>
#include <vector>

namespace bench {

namespace {

// Roughly by falling frequency: words near the front are drawn more often.
constexpr std::u16string_view ENGLISH_WORDS =
    u"the of and to a in that it is was for he on with as his they be at one have this from or had "
    u"by hot but some what there we can out other were all your when up use word how said an each "
    u"she which do their time if will way about many then them would write like so these her long "
    u"make thing see him two has look more day could go come did my sound no most number who over "
    u"know water than call first people may down side been now find any new work part take get "
    u"place made live where after back little only round man year came show every good me give our "
    u"under name very through just form much great think say help low line before turn cause same "
    u"mean differ move right boy old too does tell sentence set three want air well also play "
    u"small "
    u"end put home read hand port large spell add even land here must big high such follow act why "
    u"ask men change went light kind off need house picture try us again animal point mother world "
    u"near build self earth father library interchange representation responsibility nevertheless";

constexpr std::u16string_view ENGLISH_RARE_WORDS =
    u"caf\u00E9 na\u00EFve r\u00E9sum\u00E9 fianc\u00E9e \u201Cyes\u201D \u201Cno\u201D don\u2019t "
    u"it\u2019s \u2018so\u2019 \u20AC50 \u2013 \u2014";

constexpr std::u16string_view WESTERN_WORDS =
    u"der die und in den von zu das mit sich des auf f\u00FCr ist im dem nicht ein eine als auch "
    u"es "
    u"an werden aus er hat da\u00DF sie nach wird bei einer um am sind noch wie einem \u00FCber "
    u"Stra\u00DFe m\u00FCssen k\u00F6nnen gr\u00F6\u00DFer T\u00FCr \u00C4nderung sch\u00F6n "
    u"M\u00FCnchen "
    u"le la les de des et \u00E0 un une du en que est pour qui dans par plus pas au sur ne se avec "
    u"tout \u00E9t\u00E9 m\u00EAme apr\u00E8s tr\u00E8s gar\u00E7on fran\u00E7ais o\u00F9 "
    u"d\u00E9j\u00E0 "
    u"ch\u00E2teau h\u00F4tel na\u00EFf \u00E9cole propri\u00E9t\u00E9 fen\u00EAtre r\u00E9ponse "
    u"el los las y que a con no una su para es al lo como m\u00E1s o pero sus ya este s\u00ED "
    u"porque "
    u"ma\u00F1ana ni\u00F1o a\u00F1o se\u00F1or coraz\u00F3n qu\u00E9 tambi\u00E9n aqu\u00ED "
    u"ping\u00FCino "
    u"\u00BFd\u00F3nde? \u00A1vamos! espa\u00F1ol canci\u00F3n \u00FAltimo f\u00E1cil "
    u"\u00ABoui\u00BB";

constexpr std::u16string_view CYRILLIC_WORDS =
    u"и в не на я быть он с что а по это она этот к но они мы весь который из у то за свой от со "
    u"для "
    u"мочь человек о год такой тот или если только его бы себя другой когда уже как один наш время "
    u"знать самый стать при жизнь первый день рука где даже ничего без два очень дело новый "
    u"большой "
    u"должен именно слово место лицо друг ещё каждый потом видеть идти стоять думать вопрос работа "
    u"город дом сторона страна мир случай ребёнок голова вода конец вид система часть хороший надо "
    u"отношение женщина голос сразу деньги земля машина путь понимать отец проблема час право нога "
    u"решение дверь образ история власть закон война бог последний утро книга общий письмо народ "
    u"государство правительство обязательство необходимость представление действительность";

constexpr std::u16string_view CHINESE_WORDS =
    u"的 一 是 在 不 了 有 和 人 这 中 大 为 上 个 国 我 以 要 他 时 来 用 们 生 到 作 地 于 出 就 "
    u"分 对 成 会 可 主 发 年 动 同 工 也 能 下 过 子 说 产 种 面 而 方 后 多 定 行 学 法 所 民 得 "
    u"经 十 三 之 进 着 等 部 度 家 电 力 里 如 水 化 高 自 二 理 起 小 物 现 实 加 量 都 两 体 制 "
    u"中国 北京 上海 时间 问题 工作 社会 经济 发展 政府 公司 市场 技术 系统 信息 网络 世界 人民 "
    u"历史 文化 教育 科学 研究 学生 老师 朋友 生活 天气 语言 文字 图书馆 计算机 互联网 大学生 "
    u"自行车 火车站 飞机场 电视机 一九四九 改革开放 高速公路 人工智能 中华人民共和国 2008年 "
    u"12月 31日 100元 3.14 UTF-8";

constexpr std::u16string_view CHAT_WORDS =
    u"ok yes no lol see you soon thanks great love it so happy today birthday where are we going "
    u"pizza tonight good morning night sleep well congrats wow really cannot wait hello bye miss "
    u"photo beach holiday train late sorry call me back what a game goal win lost coffee first";

// Single code points, a variation selector behind a symbol, a skin tone, flags, a keycap, and
// sequences joined by U+200D.
constexpr std::u16string_view EMOJI_WORDS =
    u"\U0001F600 \U0001F602 \U0001F60D \U0001F44D \U0001F389 \U0001F622 \U0001F525 \U0001F64F "
    u"\U0001F60A \U0001F618 \U0001F914 \U0001F4A9 \U0001F355 \U0001F382 \U0001F680 \U0001F30D "
    u"\u2764\uFE0F \u2600\uFE0F \u263A\uFE0F \u2708\uFE0F \U0001F44B\U0001F3FD "
    u"\U0001F44F\U0001F3FB \U0001F1EB\U0001F1F7 \U0001F1EF\U0001F1F5 1\uFE0F\u20E3 "
    u"\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466 "
    u"\U0001F3F3\uFE0F\u200D\U0001F308 \U0001F469\U0001F3FE\u200D\U0001F4BB "
    u"\U0001F937\u200D\u2642\uFE0F \U0001F602\U0001F602\U0001F602";

using Words = std::vector<std::u16string_view>;

Words split(std::u16string_view list) {
    Words words;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(u' '), list.size());
        words.push_back(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return words;
}

// How the words of a script become sentences.
struct Style {
    Words words;
    // Drawn instead of a word once in `rareOneIn` times; 0 for never.
    Words rareWords;
    unsigned int rareOneIn;
    std::u16string_view space;
    std::u16string_view comma;
    Words stops;
};

Style styleOf(Script script) {
    const Words stops = {u".", u".", u".", u"?", u"!"};
    switch (script) {
    case Script::ENGLISH:
        return {split(ENGLISH_WORDS), split(ENGLISH_RARE_WORDS), 40, u" ", u",", stops};
    case Script::WESTERN:
        return {split(WESTERN_WORDS), {}, 0, u" ", u",", stops};
    case Script::CYRILLIC:
        return {split(CYRILLIC_WORDS), {}, 0, u" ", u",", stops};
    case Script::CHINESE:
        return {split(CHINESE_WORDS),
                {},
                0,
                u"",
                u"\uFF0C",
                {u"\u3002", u"\u3002", u"\uFF01", u"\uFF1F", u"\uFF1B"}};
    case Script::EMOJI:
        return {split(CHAT_WORDS), split(EMOJI_WORDS), 3, u" ", u",", stops};
    case Script::ASCII:
        break;
    }
    return {split(ENGLISH_WORDS), {}, 0, u" ", u",", stops};
}

// Random choices that are the same with every standard library: its distributions are not.
class Chooser {
public:
    unsigned int below(std::size_t n) { return static_cast<unsigned int>(engine_() % n); }

    bool oneIn(unsigned int n) { return n != 0 && below(n) == 0; }

    // Prefers the front of the list, as common words are.
    std::u16string_view word(const Words& words) {
        return words[std::min(below(words.size()), below(words.size()))];
    }

private:
    std::mt19937 engine_{20240229};
};

} // namespace

const char* nameOf(Script script) {
    switch (script) {
    case Script::ASCII:
        return "ASCII";
    case Script::ENGLISH:
        return "English";
    case Script::WESTERN:
        return "Western";
    case Script::CYRILLIC:
        return "Cyrillic";
    case Script::CHINESE:
        return "Chinese";
    case Script::EMOJI:
        break;
    }
    return "emoji";
}

std::u16string makeText(Script script, std::size_t units) {
    const Style style = styleOf(script);
    Chooser choose;
    std::u16string text;
    while (text.size() < units) {
        const unsigned int sentence = 4 + choose.below(14);
        for (unsigned int i = 0; i < sentence; ++i) {
            if (i != 0) {
                text += choose.oneIn(9) ? style.comma : std::u16string_view();
                text += style.space;
            }
            text += choose.word(choose.oneIn(style.rareOneIn) ? style.rareWords : style.words);
        }
        text += style.stops[choose.below(style.stops.size())];
        text += choose.oneIn(6) ? std::u16string_view(u"\n") : style.space;
    }
    return text;
}

} // namespace bench
