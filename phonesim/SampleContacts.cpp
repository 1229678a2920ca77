#include "phonesim/SampleContacts.h"

#include <array>
#include <cstdio>
#include <string>

#include "phonesim/Utf.h"

namespace phonesim {
namespace {

constexpr std::size_t kNames = 10;    ///< given names and family names of a language
constexpr std::size_t kRichest = 45;  ///< a contact that has everything

/// Where a contact lives. Telephone numbers are a prefix and so many digits.
struct Country {
  std::array<const char*, kNames> given;
  std::array<const char*, kNames> family;
  bool familyFirst;  ///< in one field, as people who write so enter it
  std::array<const char*, 3> streets;
  std::array<const char*, 3> cities;  ///< zip, blank, city
  const char* state;
  const char* country;
  const char* cell;
  const char* landline;
  int digits;
};

const std::array<Country, 12> kCountries = {{
    {{"Anna", "Jürgen", "Sabine", "Björn", "Käthe", "Lukas", "Frieda", "Moritz", "Heike", "Uwe"},
     {"Berg", "Maß", "Müller", "Weiß", "Schröder", "Köhler", "Jäger", "Vogel", "Brandt", "Sommer"},
     false,
     {"Lindenstraße 12", "Am Mühlbach 3", "Goethering 48"},
     {"10115 Berlin", "50667 Köln", "80331 München"},
     "",
     "Deutschland",
     "+4917604069",
     "+493023125",
     3},
    {{"Emma", "Oliver", "Grace", "Henry", "Poppy", "Arthur", "Ivy", "George", "Ruby", "Harry"},
     {"Archer", "Bishop", "Carter", "Dale", "Fletcher", "Gardner", "Hill", "Mason", "Reed", "Wood"},
     false,
     {"4 Mill Lane", "27 Station Road", "9 Church Street"},
     {"LS1 4DY Leeds", "M1 1AE Manchester", "BS1 5TR Bristol"},
     "",
     "United Kingdom",
     "+447700900",
     "+441134960",
     3},
    {{"Astrid", "Göran", "Åsa", "Örjan", "Maja", "Nils", "Elsa", "Sören", "Tove", "Ulf"},
     {"Åkerman", "Björk", "Ek", "Forsberg", "Lind", "Nyström", "Ström", "Sjögren", "Holm", "Dahl"},
     false,
     {"Storgatan 5", "Sjövägen 18", "Ängsgränd 2"},
     {"111 20 Stockholm", "411 03 Göteborg", "211 20 Malmö"},
     "",
     "Sverige",
     "+467017406",
     "+463139006",
     2},
    {{"Amélie", "François", "Chloé", "Hélène", "Gérard", "Zoé", "Noël", "Inès", "Rémi", "Anaïs"},
     {"Blanc", "Garçon", "Dubois", "Fontaine", "Lefèvre", "Moreau", "Noir", "Rivière", "Roux",
      "Vallée"},
     false,
     {"8 rue de la Forêt", "21 allée des Chênes", "3 place du Marché"},
     {"75002 Paris", "69001 Lyon", "31000 Toulouse"},
     "",
     "France",
     "+336399800",
     "+331990000",
     2},
    {{"Lucía", "Íñigo", "Begoña", "José", "María", "Nicolás", "Sofía", "Ángel", "Inés", "Andrés"},
     {"Muñoz", "Peña", "Núñez", "Castro", "Ríos", "Vega", "Ibáñez", "Campos", "Montes", "Luna"},
     false,
     {"Calle Mayor 14", "Avenida del Río 6", "Plaza de España 1"},
     {"28013 Madrid", "41001 Sevilla", "46002 València"},
     "",
     "España",
     "+447700900",
     "+441134960",
     3},
    {{"Zofia", "Łukasz", "Małgorzata", "Paweł", "Agnieszka", "Stanisław", "Kasia", "Bożena", "Jan",
      "Wojciech"},
     {"Wiśniewska", "Dąbrowski", "Kozłowska", "Zieliński", "Nowak", "Wójcik", "Lis", "Gołąb",
      "Wrona", "Sikora"},
     false,
     {"ul. Długa 7", "ul. Świętojańska 30", "Aleja Róż 2"},
     {"00-238 Warszawa", "31-018 Kraków", "80-831 Gdańsk"},
     "mazowieckie",
     "Polska",
     "+447700900",
     "+441144960",
     3},
    {{"Екатерина", "Иван", "Ольга", "Дмитрий", "Наталья", "Сергей", "Анна", "Юрий", "Вера", "Пётр"},
     {"Соколова", "Лебедев", "Орлова", "Морозов", "Зайцева", "Волков", "Берёзкина", "Щукин",
      "Голубева", "Ветров"},
     false,
     {"ул. Садовая, 15", "Зелёный пер., 4", "Морской пр., 22"},
     {"101000 Москва", "190000 Санкт-Петербург", "630000 Новосибирск"},
     "",
     "Россия",
     "+447700900",
     "+441154960",
     3},
    {{"Ελένη", "Γιώργος", "Μαρία", "Νίκος", "Σοφία", "Δημήτρης", "Άννα", "Πέτρος", "Ειρήνη",
      "Κώστας"},
     {"Παπαδοπούλου", "Αλεξίου", "Θεοδώρου", "Νικολάου", "Ιωάννου", "Γεωργίου", "Βασιλείου",
      "Δήμου", "Μακρή", "Λευκός"},
     false,
     {"Οδός Ερμού 11", "Λεωφ. Συγγρού 40", "Πλατεία Αγοράς 3"},
     {"105 57 Αθήνα", "546 24 Θεσσαλονίκη", "262 21 Πάτρα"},
     "",
     "Ελλάδα",
     "+447700900",
     "+441164960",
     3},
    {{"小明", "芳", "伟", "秀英", "娜", "强", "静", "磊", "丽", "洋"},
     {"李", "王", "张", "刘", "陈", "杨", "赵", "黄", "周", "吴"},
     true,
     {"长安街12号", "人民路8号", "中山北路100号"},
     {"100006 北京", "200001 上海", "510030 广州"},
     "",
     "中国",
     "+447700900",
     "+441174960",
     3},
    {{" 花子", " 太郎", " さくら", " 健太", " 美咲", " 大輔", " 結衣", " 翔", " ひなた", " 陸"},
     {"山田", "佐藤", "鈴木", "高橋", "田中", "渡辺", "伊藤", "中村", "小林", "加藤"},
     true,
     {"桜町1-2-3", "青葉台4-5", "本町7-8-9"},
     {"100-0001 東京", "530-0001 大阪", "600-8216 京都"},
     "",
     "日本",
     "+447700900",
     "+441184960",
     3},
    {{"서연", "민준", "지우", "서준", "하은", "도윤", "수아", "예준", "지민", "시우"},
     {"김", "이", "박", "최", "정", "강", "조", "윤", "장", "임"},
     true,
     {"세종대로 110", "해운대로 5", "중앙로 21"},
     {"04524 서울", "48094 부산", "41911 대구"},
     "",
     "대한민국",
     "+447700900",
     "+441214960",
     3},
    {{"Ava", "Liam", "Zoe", "Mason", "Mia", "Noah", "Ella", "Ethan", "Lily", "Owen"},
     {"Brooks", "Cole", "Drake", "Ellis", "Frost", "Grant", "Hayes", "Knight", "Lane", "Stone"},
     false,
     {"1200 Maple Avenue", "75 Harbor Drive", "310 Sunset Blvd"},
     {"10001 New York", "60601 Chicago", "94105 San Francisco"},
     "CA",
     "USA",
     "+121255501",
     "+131255501",
     2},
}};

constexpr std::array kFirms = {"Blue Lamp & Co.",    "Nordwind GmbH",     "Café Central",
                               "Harbour Books Ltd.", "Läkarhuset Ängen",  "Пекарня «Колосок»",
                               "蓝天旅行社",         "Atelier Été",       "さくら書店",
                               "Green Bicycle Shop", "Fußballverein Süd", "Panadería Ñandú"};
constexpr std::array kTitles = {"Dr.", "Prof.", "Manager", "Ingénieure", "Bäckerin", "医生"};

std::string Number(const char* prefix, int digits, std::size_t number) {
  char text[32];
  std::snprintf(text, sizeof text, "%s%0*zu", prefix, digits, number);
  return text;
}

void AddAddress(Fields& contact, const std::string& place, const Country& country,
                std::size_t number) {
  const std::string city = country.cities[number % country.cities.size()];
  const std::size_t blank = city.rfind(' ');
  contact[place + "street"] = country.streets[number / 3 % country.streets.size()];
  contact[place + "zip"] = city.substr(0, blank);
  contact[place + "city"] = city.substr(blank + 1);
  contact[place + "state"] = country.state;
  contact[place + "country"] = country.country;
}

bool IsLatin1(const Country& country) {
  for (const char* street : country.streets) {
    for (const char32_t code : CodePoints(street)) {
      if (code > 0xFF) return false;
    }
  }
  return true;
}

/// Clients write a contact in one packet, so only few have so much that they do not fit into one,
/// and a work address is in Latin letters unless there is one at home as well.
///
/// Every contact has a mobile number; the rest comes and goes with its number.
Fields MakeContact(std::size_t number) {
  const Country& country = kCountries[number % kCountries.size()];
  const std::size_t turn = number / kCountries.size();
  const std::string given = country.given[turn % kNames];
  const std::string family = country.family[(turn + turn / kNames * 3) % kNames];
  const std::size_t mix = number + turn + 60;  // so that no country has all of one kind
  Fields contact;
  contact[country.familyFirst ? "given" : "family"] = country.familyFirst ? family + given : family;
  if (!country.familyFirst) contact["given"] = given;
  const auto phone = [&](const char* prefix, std::size_t shift) {
    return Number(prefix, country.digits, shift + (country.digits == 2 ? 5 + turn : 100 + number));
  };
  contact["cell"] = phone(country.cell, 0);
  if (mix % 2 == 0) contact["home"] = phone(country.landline, 0);
  if (mix % 3 == 0) contact["work"] = phone(country.landline, 20);
  if (mix % 7 == 0) contact["fax"] = phone(country.landline, 40);
  if (mix % 11 == 0) contact["other"] = "*31#" + contact["cell"];
  if (mix % 3 == 0) contact["org"] = kFirms[number / 3 % kFirms.size()];
  if (mix % 9 == 0) contact["title"] = kTitles[number / 9 % kTitles.size()];
  const bool home = mix % 4 == 0;
  const bool rich = number == kRichest;
  const std::string mailbox = "contact" + std::to_string(number + 1);
  for (std::size_t i = 1; i <= (home && !rich ? 1 : (mix + 3) % 4); ++i) {
    contact["email" + std::to_string(i)] =
        mailbox + (i == 2 ? "+work@" : "@") + (i == 3 ? "mail.example.net" : "example.org");
  }
  if (mix % 5 == 0) contact["url"] = "http://www.example.com/" + mailbox + "/";
  if (mix % 25 == 0) contact["url"] = "http://example.com:8080/?id=" + std::to_string(number);
  if (home) AddAddress(contact, "home.", country, turn);
  if (home ? rich : mix % 3 == 0 && IsLatin1(country)) {
    AddAddress(contact, "work.", country, turn + 1);
  }
  if (mix % 13 == 0) contact["note"] = "Rings twice;\nthen once more: café, 18:30";
  return contact;
}

}  // namespace

std::vector<Fields> MakeSampleContacts() {
  std::vector<Fields> contacts;
  for (std::size_t number = 0; number < 198; ++number) contacts.push_back(MakeContact(number));
  contacts.push_back({{"given", "Taxi"}, {"work", "+442079460123"}});
  contacts.push_back({{"family", "Voicemail"}, {"other", "*777#"}});
  return contacts;
}

}  // namespace phonesim
