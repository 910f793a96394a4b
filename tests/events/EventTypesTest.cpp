#include "events/EventTypes.h"

#include <gtest/gtest.h>

namespace quorvi {
namespace {

TEST(FourCharCode, HasTheFirstCharacterInTheMostSignificantByte) {
    EXPECT_EQ(fourCharCode("KyvQ"), 0x4B797651u);
    EXPECT_EQ(fourCharCode("----"), 0x2D2D2D2Du);
    EXPECT_EQ(fourCharCode("psn "), 0x70736E20u);
}

TEST(FourCharCode, NamesTheEventsMessagesAndTypes) {
    EXPECT_EQ(fourCharText(kEventClassQuorvi), "KyvQ");
    EXPECT_EQ(fourCharText(kEventCommand), "KyvC");
    EXPECT_EQ(fourCharText(kKeyCommandParameter), "KyvC");
    EXPECT_EQ(fourCharText(kEventDeviceList), "KyDL");
    EXPECT_EQ(fourCharText(typeDeviceList), "KYDL");
    EXPECT_EQ(fourCharText(kEventValue), "KyEV");
    EXPECT_EQ(fourCharText(kMessagePaneShown), "KyRO");
    EXPECT_EQ(fourCharText(kMessageSettingsSaved), "KyPR");
    EXPECT_EQ(fourCharText(kMessageRecording), "KyDM");
    EXPECT_EQ(fourCharText(keyDirectObject), "----");
    EXPECT_EQ(fourCharText(typeMagnitude), "magn");
    EXPECT_EQ(fourCharText(typeSInt32), "long");
    EXPECT_EQ(fourCharText(typeProcessSerialNumber), "psn ");
}

TEST(FourCharCode, IsReadFromExactlyFourAsciiCharacters) {
    EXPECT_EQ(fourCharCodeFromText("KyDL"), 0x4B79444Cu);
    EXPECT_EQ(fourCharCodeFromText(""), std::nullopt);
    EXPECT_EQ(fourCharCodeFromText("KyD"), std::nullopt);
    EXPECT_EQ(fourCharCodeFromText("KyDLL"), std::nullopt);
    EXPECT_EQ(fourCharCodeFromText("Kyä"), std::nullopt) << "four bytes, but not four characters";
    EXPECT_EQ(fourCharCodeFromText(std::string_view("Ky\0L", 4)), std::nullopt);
    EXPECT_EQ(fourCharCodeFromText("\x7F\x01 ~"), 0x7F01207Eu);
    EXPECT_EQ(fourCharCodeFromText("KyD\x80"), std::nullopt);
}

TEST(Event, OfACommandHoldsTheMessageAndTheParameter) {
    const Event event = makeCommand(kMessageSettingsSaved, -1);
    EXPECT_EQ(event.eventClass, fourCharCode("KyvQ"));
    EXPECT_EQ(event.eventID, fourCharCode("KyvC"));
    const std::vector<EventParameter> expected{
        {fourCharCode("----"), fourCharCode("magn"), std::uint32_t{0x4B795052}},
        {fourCharCode("KyvC"), fourCharCode("long"), std::int32_t{-1}},
    };
    EXPECT_EQ(event.parameters, expected);
}

TEST(Event, GivesParametersByKeywordAndType) {
    const Event event = makeCommand(kMessageRecording, 1);
    std::uint32_t message = 0;
    std::int32_t parameter = 0;
    EXPECT_EQ(event.getMagnitude(keyDirectObject, message), noErr);
    EXPECT_EQ(message, kMessageRecording);
    EXPECT_EQ(event.getInteger(kKeyCommandParameter, parameter), noErr);
    EXPECT_EQ(parameter, 1);
}

TEST(Event, LeavesTheResultAloneWhenAParameterIsMissingOrOfAnotherType) {
    const Event event = makeCommand(kMessageRecording, 1);
    std::int32_t parameter = 77;
    EXPECT_EQ(event.getInteger(fourCharCode("none"), parameter), -1701);
    EXPECT_EQ(event.getInteger(keyDirectObject, parameter), -1700);
    EXPECT_EQ(parameter, 77);
    EventBytes bytes{1, 2};
    EXPECT_EQ(event.getBytes(keyDirectObject, typeDeviceList, bytes), errAECoercionFail);
    EXPECT_EQ(bytes, (EventBytes{1, 2}));
    EXPECT_EQ(event.findParameter(fourCharCode("none")), nullptr);
}

TEST(Event, TellsBytesOfDifferentTypesApart) {
    Event event;
    event.putBytes(keyDirectObject, fourCharCode("KYDM"), {1});
    EventBytes bytes;
    EXPECT_EQ(event.getBytes(keyDirectObject, typeDeviceList, bytes), errAECoercionFail);
    EXPECT_EQ(event.getBytes(keyDirectObject, fourCharCode("KYDM"), bytes), noErr);
    EXPECT_EQ(bytes, EventBytes{1});
}

TEST(EventParameter, IsWellFormedWhenTheValueFitsTheType) {
    const EventValue magnitude = std::uint32_t{1};
    const EventValue integer = std::int32_t{1};
    const EventValue bytes = EventBytes{1};
    EXPECT_TRUE((EventParameter{keyDirectObject, typeMagnitude, magnitude}.isWellFormed()));
    EXPECT_FALSE((EventParameter{keyDirectObject, typeMagnitude, integer}.isWellFormed()));
    EXPECT_FALSE((EventParameter{keyDirectObject, typeMagnitude, bytes}.isWellFormed()));
    EXPECT_TRUE((EventParameter{keyDirectObject, typeSInt32, integer}.isWellFormed()));
    EXPECT_FALSE((EventParameter{keyDirectObject, typeSInt32, magnitude}.isWellFormed()));
    EXPECT_TRUE((EventParameter{keyDirectObject, typeDeviceList, bytes}.isWellFormed()));
    EXPECT_FALSE((EventParameter{keyDirectObject, typeDeviceList, magnitude}.isWellFormed()));
}

} // namespace
} // namespace quorvi
