#pragma once

// The places of all texts in the three tables of a language file. A name tells the control or the
// situation that shows the text; resources/languages/English.txt tells every place it is used in.

namespace tessarin::text {

// Questions and reports in message boxes.
namespace prompt {

inline constexpr int kDeleteFile = 0;
inline constexpr int kDeleteMessages = 1;
inline constexpr int kSyncWithOutlook = 6;
inline constexpr int kDeleteLocalContact = 7;  // "###" is the contact's name.
// Holds "###1", "###2)" with its bracket, "###3" and "###4".
inline constexpr int kReplaceEvent = 8;
inline constexpr int kEventAdded = 9;
inline constexpr int kContactAdded = 10;
inline constexpr int kEventsDeleted = 13;
inline constexpr int kContactsDeleted = 14;
inline constexpr int kEventChanged = 15;
inline constexpr int kContactChanged = 16;
inline constexpr int kReplaceFile = 17;  // The name of the file is the title of the box.
inline constexpr int kFileReceived = 18;
inline constexpr int kFileSent = 19;
inline constexpr int kMessageSent = 21;
inline constexpr int kCopiedToSim = 22;
inline constexpr int kSyncWithLocalBook = 30;
inline constexpr int kDeleteComputerFiles = 500;
inline constexpr int kSavedAs = 501;

}  // namespace prompt

// Failures in message boxes.
namespace error {

// Missing or invalid, in the contact editor and in the composer.
inline constexpr int kPhoneNumber = 11;
inline constexpr int kNothingSelected = 18;
inline constexpr int kNoNumberSelected = 19;
inline constexpr int kReceiveFile = 21;
inline constexpr int kSendFile = 22;
inline constexpr int kReadMessages = 26;
inline constexpr int kSendMessage = 28;
inline constexpr int kDeleteEvent = 30;
inline constexpr int kWriteEvent = 31;
inline constexpr int kReadPhonebook = 32;
inline constexpr int kDeleteContact = 33;
inline constexpr int kWriteContact = 34;
inline constexpr int kCopyToSim = 35;
inline constexpr int kLoadOutlook = 37;     // Shown behind "Error: 624 ".
inline constexpr int kOutlookMissing = 39;  // Shown behind "Error 625: ".
inline constexpr int kEndBeforeStart = 40;
inline constexpr int kAlarmAfterStart = 41;
inline constexpr int kForeignPhone = 42;
inline constexpr int kCharacterSet = 48;
inline constexpr int kPrepare = 49;
inline constexpr int kNameMissing = 50;
inline constexpr int kNumberMissing = 51;
inline constexpr int kNoPreview = 54;
inline constexpr int kEqualsSign = 55;
inline constexpr int kFault = 500;  // "###1" is the text of the fault.
inline constexpr int kReadCalendar = 501;
inline constexpr int kEntryTime = 502;
inline constexpr int kToolMissing = 503;  // Program and the places where it was looked for.
inline constexpr int kToolStart = 504;
inline constexpr int kNoAudioDevice = 505;
inline constexpr int kNoSoundFont = 506;
inline constexpr int kMediaFileMissing = 507;
inline constexpr int kMediaFileDamaged = 508;
inline constexpr int kSaveFile = 509;
inline constexpr int kHelpFile = 510;
inline constexpr int kDamagedItem = 511;
inline constexpr int kSaveTemplates = 512;
inline constexpr int kReadTemplates = 513;
inline constexpr int kDeleteComputerFile = 514;
inline constexpr int kListingDamaged = 515;
inline constexpr int kSyncStopped = 516;

}  // namespace error

// Everything else: captions, labels, tool tips, accessible names.
namespace interface_ {

// Main menu.
inline constexpr int kMenuFile = 53;
inline constexpr int kMenuPhoneInfo = 54;
inline constexpr int kMenuExit = 55;
inline constexpr int kMenuEdit = 56;  // Also edits a contact in the phonebook synchronization.
inline constexpr int kMenuCut = 57;
inline constexpr int kMenuCopy = 58;
inline constexpr int kMenuPaste = 59;
inline constexpr int kMenuDelete = 60;  // Also deletes contacts in the phonebook synchronization.
inline constexpr int kMenuSelectAll = 61;
inline constexpr int kMenuTools = 62;
inline constexpr int kFileExplorer = 63;
inline constexpr int kSmsEms = 64;
inline constexpr int kMms = 65;
inline constexpr int kRingtone = 66;
inline constexpr int kPicture = 69;
inline constexpr int kTheme = 70;
inline constexpr int kMovie = 71;
inline constexpr int kCalendar = 72;
inline constexpr int kPhonebook = 73;
inline constexpr int kMenuPhonebookSync = 74;
inline constexpr int kMenuCalendarSync = 75;
inline constexpr int kMenuOption = 76;
inline constexpr int kMenuLanguage = 77;
inline constexpr int kLanguageEnglish = 78;
inline constexpr int kLanguageFrench = 79;
inline constexpr int kLanguageGerman = 80;
inline constexpr int kLanguageItalian = 81;
inline constexpr int kLanguageSpanish = 82;
inline constexpr int kLanguageTraditionalChinese = 83;
inline constexpr int kMenuHelpContents = 86;
inline constexpr int kAbout = 87;  // Menu entry and window title.
inline constexpr int kDeletePhoneFile = 88;
inline constexpr int kRefreshPhoneFile = 91;

// Calendar categories.
inline constexpr int kCategoryAppointment = 190;
inline constexpr int kCategoryDate = 195;
inline constexpr int kCategoryTravel = 196;
inline constexpr int kCategoryVacation = 197;
inline constexpr int kCategoryAnniversary = 198;
// The one category word that is kept and written to the phone, the same in all languages.
inline constexpr int kCategoryKept = 199;

// Phone Info window.
inline constexpr int kPhoneInfoTitle = 250;
inline constexpr int kPhoneInfoManufacturer = 251;
inline constexpr int kPhoneInfoModel = 252;
inline constexpr int kPhoneInfoFirmware = 253;
inline constexpr int kPhoneInfoImei = 254;

// Tool tips of the phonebook synchronization.
inline constexpr int kSyncEditTip = 264;
inline constexpr int kSyncDeleteTip = 265;

// Choosing recipients.
inline constexpr int kGroupTitle = 269;
inline constexpr int kGroupName = 270;
inline constexpr int kGroupNumber = 271;
// From a contact's numbers to the contacts; closes a synchronization window after a run.
inline constexpr int kBack = 272;
inline constexpr int kGroupOk = 273;
inline constexpr int kGroupCancel = 274;

// Template editor.
inline constexpr int kTemplateNewTitle = 275;
inline constexpr int kTemplateText = 276;

// Event editor.
inline constexpr int kEventNewTitle = 279;
inline constexpr int kEventEditTitle = 280;
inline constexpr int kType = 281;  // Category of an event; kind of a number.
inline constexpr int kEventDetails = 282;
inline constexpr int kEventSubject = 287;
inline constexpr int kEventLocation = 288;
inline constexpr int kEventStartDate = 292;
inline constexpr int kEventStartTime = 293;
inline constexpr int kEventEndDate = 294;
inline constexpr int kEventEndTime = 295;
inline constexpr int kEventAlarm = 296;
inline constexpr int kEventAlarmDate = 297;
inline constexpr int kEventAlarmTime = 298;
inline constexpr int kEventOk = 321;
inline constexpr int kEventCancel = 322;

// Contact editor.
inline constexpr int kContactNewTitle = 323;
inline constexpr int kContactEditTitle = 324;
inline constexpr int kContactOnSim = 325;
inline constexpr int kContactInPhone = 326;
inline constexpr int kContactName = 327;
inline constexpr int kContactNumbers = 344;  // First of five: home, work, mobile, fax, other.
inline constexpr int kContactEmail = 354;
inline constexpr int kContactCompany = 360;
inline constexpr int kContactOk = 366;
inline constexpr int kContactCancel = 367;

// Calendar synchronization.
inline constexpr int kCalendarSyncTitle = 368;
inline constexpr int kCalendarSyncPhone = 369;
inline constexpr int kCalendarSyncOutlook = 370;
inline constexpr int kCalendarSyncSelectAll = 371;
inline constexpr int kCalendarSyncCategory = 372;
inline constexpr int kCalendarSyncSubject = 373;
inline constexpr int kCalendarSyncLocation = 374;
inline constexpr int kCalendarSyncStart = 375;
inline constexpr int kCalendarSyncEnd = 376;
inline constexpr int kCalendarSyncAlarm = 379;
inline constexpr int kCalendarSyncModified = 380;
inline constexpr int kCalendarSyncRun = 381;
inline constexpr int kCalendarSyncCancel = 382;

// Phonebook synchronization.
inline constexpr int kPhonebookSyncTitle = 383;
inline constexpr int kPlacePhone = 384;
inline constexpr int kPlaceOutlook = 385;
inline constexpr int kPhonebookSyncSelectAll = 386;
inline constexpr int kColumnMemory = 387;
inline constexpr int kColumnName = 388;
// Kind of a number, and of an address in front of its part ("Home Street"); likewise kWork.
inline constexpr int kHome = 389;
inline constexpr int kWork = 390;
inline constexpr int kMobile = 391;
inline constexpr int kFax = 392;
inline constexpr int kOther = 393;
inline constexpr int kEmail = 394;
inline constexpr int kCompany = 398;
inline constexpr int kStreet = 399;
inline constexpr int kCity = 400;
inline constexpr int kZip = 401;
inline constexpr int kCountry = 402;
inline constexpr int kModified = 404;
inline constexpr int kPhonebookSyncRun = 405;
inline constexpr int kPhonebookSyncCancel = 406;

// Copy to SIM.
inline constexpr int kCopyToSimTitle = 407;
inline constexpr int kCopyToSimChoose = 408;
inline constexpr int kCopyToSimOk = 409;
inline constexpr int kCopyToSimCancel = 410;

// Replace question.
// Window title and heading of the contact that would be replaced.
inline constexpr int kReplaceThis = 411;
inline constexpr int kReplaceWith = 412;
inline constexpr int kReplaceAddNew = 413;
inline constexpr int kReplaceYes = 414;
inline constexpr int kReplaceYesToAll = 415;
inline constexpr int kReplaceNo = 416;
inline constexpr int kReplaceNoToAll = 417;

// Later numbers of the main menu and of several windows.
inline constexpr int kLanguageSimplifiedChinese = 425;
inline constexpr int kTemplateEditTitle = 426;
// Names the SIM's phonebook in bars, columns and trees; likewise kPhoneMemory.
inline constexpr int kSim = 427;
inline constexpr int kPhoneMemory = 428;
inline constexpr int kReadingPhonebook = 429;
inline constexpr int kAskingTitle = 430;
inline constexpr int kAskingQuestion = 431;
inline constexpr int kOk = 432;  // Reads the phonebook after connecting; closes the About window.
inline constexpr int kNotNow = 433;
inline constexpr int kLanguageRussian = 453;
inline constexpr int kMessageFolders = 461;  // First of four: unread, read, unsent, sent.
inline constexpr int kState = 467;
inline constexpr int kLanguageRomanian = 482;

// Search window and connection.
inline constexpr int kSearchTitle = 500;
inline constexpr int kSearchTrying = 501;
inline constexpr int kSearchHint = 502;
inline constexpr int kSearchPassedOver = 503;
inline constexpr int kPortNoPermission = 504;
inline constexpr int kPortNoPermissionAtAll = 505;
inline constexpr int kPortBusy = 506;
inline constexpr int kPortNoTerminal = 507;
inline constexpr int kPortInputOutput = 508;
inline constexpr int kPortSilent = 509;
inline constexpr int kSearchNoPort = 512;
inline constexpr int kSearchHowTo = 513;
inline constexpr int kConnectIdentifying = 515;
inline constexpr int kConnectPreparing = 516;

// Start panel and status bar.
inline constexpr int kStartNoPhone = 550;
inline constexpr int kStartNoPhoneHint = 551;
inline constexpr int kStartStepSwitchOn = 552;
inline constexpr int kStartStepConnect = 553;
inline constexpr int kStartStepWait = 554;
inline constexpr int kStartConnected = 555;
inline constexpr int kStartBattery = 556;
inline constexpr int kStartStorage = 557;
inline constexpr int kStartPort = 558;
inline constexpr int kStartNextSteps = 559;
inline constexpr int kStartOpenFiles = 560;
inline constexpr int kStartOpenMessages = 561;
inline constexpr int kStartOpenPhonebook = 562;
inline constexpr int kStartOpenCalendar = 563;
inline constexpr int kStartOpenPictures = 564;
inline constexpr int kStartOpenRingtones = 565;
inline constexpr int kStatusNoPhone = 566;
inline constexpr int kStatusCaption = 567;
inline constexpr int kStatusConnected = 568;
inline constexpr int kStatusSeparator = 569;  // Between model and port, with its blanks.
inline constexpr int kStatusSearching = 570;
inline constexpr int kStatusItems = 571;
inline constexpr int kStatusContacts = 572;
inline constexpr int kStatusEntries = 573;
inline constexpr int kStatusMessages = 574;
inline constexpr int kStatusSelected = 575;
inline constexpr int kSizeBytes = 576;
inline constexpr int kSizeKilobytes = 577;
inline constexpr int kSizeMegabytes = 578;
inline constexpr int kPageNeedsPhone = 580;
inline constexpr int kAboutFilePage = 581;
inline constexpr int kAboutSmsPage = 582;
inline constexpr int kAboutMmsPage = 583;
inline constexpr int kAboutRingtonePage = 584;
inline constexpr int kAboutPicturePage = 585;
inline constexpr int kAboutThemePage = 586;
inline constexpr int kAboutMoviePage = 587;
inline constexpr int kAboutCalendarPage = 588;
inline constexpr int kAboutPhonebookPage = 589;

// Menus, context menus, column heads, tool tips.
inline constexpr int kMenuHelp = 600;
inline constexpr int kDeleteSms = 601;
inline constexpr int kRefreshSms = 602;
inline constexpr int kRefreshRingtone = 603;
inline constexpr int kEditPicture = 604;
inline constexpr int kRefreshPicture = 605;
inline constexpr int kRefreshTheme = 606;
inline constexpr int kRefreshMovie = 607;
inline constexpr int kEditSimContact = 608;
inline constexpr int kDeleteSimContact = 609;
inline constexpr int kRefreshSimContacts = 610;
inline constexpr int kEditPhoneContact = 611;
inline constexpr int kDeletePhoneContact = 612;
inline constexpr int kCopyPhoneToSim = 613;
inline constexpr int kRefreshPhoneContacts = 614;
inline constexpr int kEditEvent = 615;
inline constexpr int kDeleteEvents = 616;
inline constexpr int kRefreshCalendar = 617;
inline constexpr int kDeleteComputerFiles = 618;
inline constexpr int kPlay = 619;
inline constexpr int kPause = 620;
inline constexpr int kStop = 621;
inline constexpr int kYear = 622;
inline constexpr int kMonth = 623;
inline constexpr int kDay = 624;
inline constexpr int kDownloadTip = 625;
inline constexpr int kUploadTip = 626;
inline constexpr int kColumnFileName = 627;
inline constexpr int kColumnPhoneSize = 628;
inline constexpr int kColumnFileType = 629;
inline constexpr int kColumnPhoneDate = 630;
// The head says bytes although the column counts in KB.
inline constexpr int kColumnComputerSize = 631;
inline constexpr int kColumnComputerDate = 632;
inline constexpr int kColumnMessageStore = 633;
inline constexpr int kColumnMessageSender = 634;
inline constexpr int kColumnMessageText = 635;
inline constexpr int kColumnNumbers = 636;
inline constexpr int kActionDeleteJar = 637;
inline constexpr int kActionRefreshView = 638;
inline constexpr int kActionMidi = 639;
inline constexpr int kActionMp3 = 640;
inline constexpr int kActionNew = 641;
inline constexpr int kActionSave = 642;
inline constexpr int kActionDelete = 643;
inline constexpr int kActionEdit = 644;
inline constexpr int kActionRefresh = 645;
inline constexpr int kActionReply = 646;
inline constexpr int kActionForward = 647;
inline constexpr int kActionSync = 648;
inline constexpr int kActionMp3Button = 649;

// File pages and transfer window.
inline constexpr int kPanePhone = 650;
inline constexpr int kPaneComputer = 651;
inline constexpr int kFolderUnreadable = 653;
inline constexpr int kFolderEmpty = 654;
inline constexpr int kMmsUnavailable = 655;  // The only node of the phone's tree on the MMS page.
inline constexpr int kPreview = 656;
inline constexpr int kPreviewHint = 657;
inline constexpr int kFileNotTaken = 658;
inline constexpr int kOneFileAtATime = 659;
inline constexpr int kTransferTitle = 660;
// In front of the file name, with its blank; likewise kTransferSending.
inline constexpr int kTransferReceiving = 661;
inline constexpr int kTransferSending = 662;
inline constexpr int kTransferProgress = 663;
inline constexpr int kTransferRate = 664;
inline constexpr int kWorkFolder = 665;
inline constexpr int kWorkMessages = 666;
inline constexpr int kWorkCalendar = 667;
inline constexpr int kWorkPhoneMemory = 668;
inline constexpr int kWorkSim = 669;
inline constexpr int kWorkContactSync = 670;
inline constexpr int kWorkCalendarSync = 671;
inline constexpr int kWorkPicture = 672;
inline constexpr int kWorkRingtone = 673;
inline constexpr int kWorkCopyToSim = 674;
inline constexpr int kWorkDeleteContacts = 675;

// Phonebook.
inline constexpr int kUrl = 700;
inline constexpr int kChooseMemory = 701;
inline constexpr int kNoContacts = 702;
inline constexpr int kSelectContact = 703;
inline constexpr int kSaveIn = 704;
inline constexpr int kPhoneNumbers = 705;

// Calendar.
inline constexpr int kDayNames = 750;    // First of seven, Sunday to Saturday.
inline constexpr int kMonthNames = 764;  // First of twelve.
inline constexpr int kToday = 776;
inline constexpr int kView = 777;
inline constexpr int kViewNames = 778;  // First of three: all entries, month, day.
inline constexpr int kColumnDate = 781;
inline constexpr int kColumnTime = 782;
inline constexpr int kColumnTick = 783;
inline constexpr int kColumnCategory = 784;
inline constexpr int kColumnSubject = 785;
inline constexpr int kColumnLocation = 786;
// The display word of the last category, where kCategoryKept is the stored one.
inline constexpr int kCategoryMiscellaneous = 787;
inline constexpr int kNoEntries = 788;
inline constexpr int kTicked = 789;
inline constexpr int kNotTicked = 790;

// Messages.
inline constexpr int kMessagesRoot = 800;
inline constexpr int kReadingDate = 801;
inline constexpr int kReadingSender = 802;
inline constexpr int kReadingText = 803;
inline constexpr int kSelectMessage = 804;
inline constexpr int kSenderTip = 805;
inline constexpr int kComposerTitle = 806;
inline constexpr int kComposerRecipients = 807;
inline constexpr int kComposerText = 808;
inline constexpr int kComposerSend = 809;
inline constexpr int kComposerCancel = 810;
inline constexpr int kComposerPhonebook = 811;
inline constexpr int kComposerMore = 812;
inline constexpr int kComposerLess = 813;
inline constexpr int kComposerSmileys = 814;
inline constexpr int kComposerTemplates = 815;
inline constexpr int kTemplateNew = 816;
inline constexpr int kTemplateEdit = 817;
inline constexpr int kTemplateDelete = 818;
inline constexpr int kTemplateUse = 819;
inline constexpr int kTemplateSave = 820;
inline constexpr int kTemplateOk = 821;
inline constexpr int kTemplateCancel = 822;
inline constexpr int kComposerParts = 823;
inline constexpr int kComposerSending = 824;
inline constexpr int kGroupDetailsHint = 825;
inline constexpr int kGroupAdd = 826;
inline constexpr int kGroupRemove = 827;
inline constexpr int kComposerStopped = 828;
inline constexpr int kComposerLeftOut = 829;

// Synchronization and Outlook.
inline constexpr int kSyncToLeft = 850;
inline constexpr int kSyncToRight = 851;
inline constexpr int kSyncChoose = 852;
inline constexpr int kSyncSummary = 853;  // Side, added, updated, left alone, failed.
inline constexpr int kSyncRow = 854;
inline constexpr int kSyncReadPhone = 855;

// Help window, message boxes, About, open and save.
inline constexpr int kHelpTitle = 900;
inline constexpr int kHelpContents = 901;
inline constexpr int kHelpSearch = 902;
inline constexpr int kHelpSearchHint = 903;
inline constexpr int kHelpBack = 904;
inline constexpr int kHelpForward = 905;
inline constexpr int kHelpNothingFound = 906;
inline constexpr int kHelpFound = 907;
inline constexpr int kButtonOk = 910;
inline constexpr int kButtonCancel = 911;
inline constexpr int kButtonYes = 912;
inline constexpr int kButtonNo = 913;
inline constexpr int kButtonClose = 914;
inline constexpr int kFaultTitle = 915;
inline constexpr int kMediaErrorTitle = 916;
inline constexpr int kSaveTitle = 920;
inline constexpr int kFilterRichText = 922;
inline constexpr int kDialogFolder = 924;
inline constexpr int kDialogFileName = 925;
inline constexpr int kDialogFileType = 926;
inline constexpr int kDialogSave = 927;
inline constexpr int kAboutVersion = 930;
inline constexpr int kAboutPurpose = 931;
inline constexpr int kAboutLicense = 932;

// Accessible names.
inline constexpr int kNamePhoneFolders = 950;
inline constexpr int kNamePhoneFiles = 951;
inline constexpr int kNameComputerFolders = 952;
inline constexpr int kNameComputerFiles = 953;
inline constexpr int kNameStorage = 954;
inline constexpr int kNameMessageFolders = 955;
inline constexpr int kNameMessages = 956;
inline constexpr int kNameMessageText = 957;
inline constexpr int kNameMemories = 958;
inline constexpr int kNameContacts = 959;
inline constexpr int kNameContactDetails = 960;
inline constexpr int kNamePicturePreview = 961;
inline constexpr int kNameThemePreview = 962;
inline constexpr int kNameAllEntries = 963;
inline constexpr int kNameMonthSheet = 964;
inline constexpr int kNameDayEntries = 965;
inline constexpr int kNameYearStep = 966;
inline constexpr int kNameMainMenu = 967;
inline constexpr int kNamePageBar = 968;
inline constexpr int kNameActionBar = 969;
inline constexpr int kNameStatusBar = 970;
inline constexpr int kNameStatusPanels = 971;  // First of six, for panels 1 to 6.
inline constexpr int kNameStartPanel = 977;
inline constexpr int kNamePhonePicture = 978;
inline constexpr int kNameSearchAnimation = 979;
inline constexpr int kNameTransferAnimation = 980;
inline constexpr int kNameProgress = 981;
inline constexpr int kNameDivider = 982;
inline constexpr int kNameCounter = 983;
inline constexpr int kNameLimit = 984;
inline constexpr int kNameContactNumbers = 985;
inline constexpr int kNameGroupContacts = 986;
inline constexpr int kNameGroupChosen = 987;
inline constexpr int kNameReplaced = 988;
inline constexpr int kNameReplacing = 989;
inline constexpr int kNameLeftPlace = 990;
inline constexpr int kNameRightPlace = 991;
inline constexpr int kNameLeftRows = 992;
inline constexpr int kNameRightRows = 993;
inline constexpr int kNameSyncActions = 994;
inline constexpr int kNameSyncResult = 995;
inline constexpr int kNameHelpPage = 996;
inline constexpr int kNameConnectionState = 997;

}  // namespace interface_

}  // namespace tessarin::text
