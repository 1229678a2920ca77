#include "outlook/NameParts.h"

namespace tessarin::outlook {

namespace {

// Both take whole words off a name; false when they do not stand there.
bool TakeFront(Text& name, const Text& words) {
  if (words.empty() || !(name + u" ").starts_with(words + u" ")) return false;
  name = TrimBlanks(TextView(name).substr(words.size()));
  return true;
}

bool TakeBack(Text& name, const Text& words) {
  if (words.empty() || !(u" " + name).ends_with(u" " + words)) return false;
  name = TrimBlanks(TextView(name).substr(0, name.size() - words.size()));
  return true;
}

// What is not the family name.
void TakeGiven(Text names, const NameParts& before, NameParts& parts) {
  if (names != before[kAdditional] && TakeBack(names, before[kAdditional])) {
    parts[kAdditional] = before[kAdditional];
    parts[kGiven] = names;
  } else if (TakeFront(names, before[kGiven])) {
    parts[kGiven] = before[kGiven];
    parts[kAdditional] = names;
  } else {
    parts[kGiven] = names;
  }
}

void SplitAtLastWord(const Text& name, NameParts& parts) {
  const std::size_t blank = name.find_last_of(u' ');
  const bool hasFamily = blank != Text::npos;
  parts[kGiven] = hasFamily ? TrimBlanks(TextView(name).substr(0, blank)) : name;
  if (hasFamily) parts[kFamily] = name.substr(blank + 1);
}

}  // namespace

// Some write the family name first, so each is looked for at both ends.
NameParts PartsOf(const Text& fullName, const NameParts& before) {
  NameParts parts;
  Text rest = TrimBlanks(fullName);
  if (TakeFront(rest, before[kPrefix])) parts[kPrefix] = before[kPrefix];
  if (TakeBack(rest, before[kSuffix])) parts[kSuffix] = before[kSuffix];
  const Text given = TrimBlanks(before[kGiven] + u" " + before[kAdditional]);
  if (TakeBack(rest, before[kFamily]) || TakeFront(rest, before[kFamily])) {
    parts[kFamily] = before[kFamily];
    TakeGiven(rest, before, parts);
  } else if (TakeFront(rest, given) || TakeBack(rest, given)) {
    parts[kFamily] = rest;
    TakeGiven(given, before, parts);
  } else {
    SplitAtLastWord(rest, parts);
  }
  return parts;
}

}  // namespace tessarin::outlook
