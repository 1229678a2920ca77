#include "tests/phonesim/IrmcBench.h"

namespace phonesim {

void IrmcBench::ConnectSync() {
  ASSERT_EQ(TalkText("AT*EOBEX\r"), "\r\nCONNECT\r\n");
  ASSERT_EQ(Talk("80 0013 10 00 0200 46 000C 'IRMC-SYNC'").substr(0, 23),
            "A0 00 18 10 00 02 00 CB");
}

std::string IrmcBench::Download(const std::string& name) {
  std::string data;
  for (Bytes reply = Wire(Get(name));; reply = Wire(Talk("83 00 03"))) {
    const ByteView view(reply);
    EXPECT_EQ(Read16(view.subspan(1)), view.size());
    if (view[0] != 0x90 && view[0] != 0xA0) return "refused";
    EXPECT_EQ(view[3], view[0] == 0x90 ? 0x48 : 0x49);
    data += TextOf(view.subspan(6));
    if (view[0] == 0xA0) return data;
  }
}

std::string IrmcBench::Put(const std::string& name, const std::string& object) {
  Bytes request =
      Wire(Name(name) + "C3 0000" + Digits16(object.size()) + "49" + Digits16(object.size() + 3));
  Append(request, object);
  Bytes packet{0x82};
  Append16(packet, request.size() + 3);
  Append(packet, request);
  return Talk(packet);
}

}  // namespace phonesim
