// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Word lists in the Latin alphabet, and of chat messages.
#include "bench/words.h"

namespace bench::words {

const std::u16string_view ENGLISH =
    u"the of and to a in that it is was for he on with as his they be at one have this from or "
    u"had by hot but some what there we can out other were all your when up use word how said an "
    u"each she which do their time if will way about many then them would write like so these "
    u"her long make thing see him two has look more day could go come did my sound no most "
    u"number who over know water than call first people may down side been now find any new work "
    u"part take get place made live where after back little only round man year came show every "
    u"good me give our under name very through just form much great think say help low line "
    u"before turn cause same mean differ move right boy old too does tell sentence set three "
    u"want air well also play small end put home read hand port large spell add even land here "
    u"must big high such follow act why ask men change went light kind off need house picture "
    u"try us again animal point mother world near build self earth father library interchange "
    u"representation responsibility nevertheless";

const std::u16string_view ENGLISH_RARE =
    u"caf\u00E9 na\u00EFve r\u00E9sum\u00E9 fianc\u00E9e \u201Cyes\u201D \u201Cno\u201D don\u2019t "
    u"it\u2019s \u2018so\u2019 \u20AC50 \u2013 \u2014";

const std::u16string_view WESTERN =
    u"der die und in den von zu das mit sich des auf f\u00FCr ist im dem nicht ein eine als auch "
    u"es an werden aus er hat da\u00DF sie nach wird bei einer um am sind noch wie einem "
    u"\u00FCber Stra\u00DFe m\u00FCssen k\u00F6nnen gr\u00F6\u00DFer T\u00FCr \u00C4nderung "
    u"sch\u00F6n M\u00FCnchen le la les de des et \u00E0 un une du en que est pour qui dans par "
    u"plus pas au sur ne se avec tout \u00E9t\u00E9 m\u00EAme apr\u00E8s tr\u00E8s gar\u00E7on "
    u"fran\u00E7ais o\u00F9 d\u00E9j\u00E0 ch\u00E2teau h\u00F4tel na\u00EFf \u00E9cole "
    u"propri\u00E9t\u00E9 fen\u00EAtre r\u00E9ponse el los las y que a con no una su para es al "
    u"lo como m\u00E1s o pero sus ya este s\u00ED porque ma\u00F1ana ni\u00F1o a\u00F1o "
    u"se\u00F1or coraz\u00F3n qu\u00E9 tambi\u00E9n aqu\u00ED ping\u00FCino \u00BFd\u00F3nde? "
    u"\u00A1vamos! espa\u00F1ol canci\u00F3n \u00FAltimo f\u00E1cil \u00ABoui\u00BB";

const std::u16string_view POLISH =
    u"i w nie na się z do to że jest o jak ale po co tak za od go już jego by ja tylko przez czy "
    u"ich jej być może był dla ten tego jeszcze są ze tu przy pod gdy bardzo kiedy nic nad teraz "
    u"więc bez można pan pani oraz także który która które między jednak ponieważ człowiek "
    u"ludzie czas rok dzień noc dom droga miasto kraj świat życie praca woda chleb wino morze "
    u"słońce księżyc niebo ziemia góra wyspa rzeka dziecko kobieta mężczyzna matka ojciec brat "
    u"siostra przyjaciel imię słowo język książka szkoła lekcja nauczyciel pytanie odpowiedź "
    u"problem rozwiązanie początek koniec część ręka oko serce głowa głos drzwi okno stół "
    u"krzesło samochód pociąg statek samolot podróż dobry zły duży mały nowy stary piękny "
    u"pierwszy ostatni biały czarny czerwony żółty mówić robić widzieć wiedzieć chcieć iść "
    u"przyjść wziąć dać pisać czytać słuchać jeść pić żyć mieszkać uczyć rząd prawo wolność "
    u"pokój wojna historia kultura nauka sztuka muzyka edukacja gospodarka spółka komputer sieć "
    u"biblioteka uniwersytet społeczeństwo rzeczywistość zobowiązanie wynik rozwój źródło łódź "
    u"święto gęś jaźń wciąż późno wcześnie największy dziesięć pięćdziesiąt październik środa "
    u"czwartek Łódź Kraków Gdańsk";

const std::u16string_view ESPERANTO =
    u"la de kaj en ne ke al estas por mi li oni vi ĝi pri sed kun ĉi tiu estis kiu ĉu ŝi ili ni "
    u"se pli ankaŭ nur kiel tio ĉiu jam eĉ el per da post aŭ kiam tre sen ĝis ĉar tie nun ĉe "
    u"antaŭ iu kion sia havas povas devas volas scias vidas diras faras iras venas prenas donas "
    u"skribas legas aŭdas parolas manĝas trinkas vivas loĝas lernas homo tempo jaro tago nokto "
    u"domo strato urbo lando mondo vivo laboro akvo pano vino maro suno luno ĉielo tero monto "
    u"insulo rivero infano virino viro patrino patro frato fratino amiko nomo vorto lingvo libro "
    u"lernejo leciono instruisto demando respondo problemo solvo komenco fino parto mano okulo "
    u"koro kapo voĉo pordo fenestro tablo seĝo aŭto trajno ŝipo aviadilo vojaĝo bona malbona "
    u"granda malgranda nova malnova bela unua lasta blanka nigra ruĝa flava verda registaro leĝo "
    u"rajto libereco paco milito historio kulturo scienco arto muziko edukado ekonomio "
    u"entrepreno komputilo reto biblioteko universitato socio realeco devo rezulto evoluo ĥoro "
    u"eĥo ĵurnalo ĵaŭdo ĉevalo ŝafo ĝardeno kuŝi ŝlosilo ĉambro ĝojo neĝo paĝo hodiaŭ morgaŭ "
    u"hieraŭ baldaŭ ĉiam neniam preskaŭ laŭ apud";

const std::u16string_view CHAT =
    u"ok yes no lol see you soon thanks great love it so happy today birthday where are we going "
    u"pizza tonight good morning night sleep well congrats wow really cannot wait hello bye miss "
    u"photo beach holiday train late sorry call me back what a game goal win lost coffee first";

// Single code points, a variation selector behind a symbol, a skin tone, flags, a keycap, and
// sequences joined by U+200D.
const std::u16string_view EMOJI =
    u"\U0001F600 \U0001F602 \U0001F60D \U0001F44D \U0001F389 \U0001F622 \U0001F525 \U0001F64F "
    u"\U0001F60A \U0001F618 \U0001F914 \U0001F4A9 \U0001F355 \U0001F382 \U0001F680 \U0001F30D "
    u"\u2764\uFE0F \u2600\uFE0F \u263A\uFE0F \u2708\uFE0F \U0001F44B\U0001F3FD "
    u"\U0001F44F\U0001F3FB \U0001F1EB\U0001F1F7 \U0001F1EF\U0001F1F5 1\uFE0F\u20E3 "
    u"\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466 "
    u"\U0001F3F3\uFE0F\u200D\U0001F308 \U0001F469\U0001F3FE\u200D\U0001F4BB "
    u"\U0001F937\u200D\u2642\uFE0F \U0001F602\U0001F602\U0001F602";

} // namespace bench::words
