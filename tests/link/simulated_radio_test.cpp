#include "link/simulated_radio.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "link/clone_frame.h"

namespace orvane::link {
namespace {

constexpr double kByteTime = 0.001;

/// Bytes 0, 1, 2 ... and every exchange told.
class Bench {
 public:
  explicit Bench(std::size_t size = 16384, std::vector<Fault> faults = {})
      : radio(Pattern(size), FaultPlan(std::move(faults))) {
    radio.SetObserver([this](const Exchange& e) { told.push_back(ExchangeText(e)); });
  }

  static std::vector<std::uint8_t> Pattern(std::size_t size) {
    std::vector<std::uint8_t> bytes(size);
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<std::uint8_t>(i);
    return bytes;
  }

  /// Everything that comes back, echo and answers; "!" where the cable is gone.
  std::string Send(std::string_view bytes) {
    std::string back;
    for (const char c : bytes) {
      now += kByteTime;
      const CableReaction reaction = radio.Receive(static_cast<std::uint8_t>(c), now);
      if (reaction.echo) back += static_cast<char>(*reaction.echo);
      back += reaction.answer;
      if (reaction.unplugged) back += "!";
    }
    return back;
  }
  void Synchronize() { Send("P0ACMD:002\r\n#CMDSY\r\n"); }

  SimulatedRadio radio;
  std::vector<std::string> told;
  double now = 0;
};

std::string ReadFrame(int address, int length) {
  return BuildFrame(kCommandRead, AddressField(address), LengthField(length));
}

std::string WriteFrame(int address, const std::string& data, int length) {
  return BuildFrame(kCommandWrite, AddressField(address), LengthField(length), data);
}

TEST(SimulatedRadio, AnswersCommandsOfASession) {
  struct Case {
    std::string sent, answer;
  };
  const std::vector<Case> cases = {
      {"#WJDSR\t00\t7B\r\n", "#CMDOK\r\n" + BuildFrame(kCommandStatusReply, "00")},
      {"#WJDRD\t0040\t10\t60\r\n",
       "#CMDOK\r\n" + BuildFrame(kCommandData, "0040", "10", "404142434445464748494A4B4C4D4E4F")},
      {ReadFrame(0x3FFF, 1), "#CMDOK\r\n" + BuildFrame(kCommandData, "3FFF", "01", "FF")},
      {"ACMD:002\r\n", "OK\r\n"},
      {"#CMDOK\r\n", ""},
      {"#CMDSM\r\n", ""},
      {"#CMDER\r\n", ""},
      {"#CMDUN\r\n", ""},
      {"#CMDSY\r\n", "#CMDOK\r\n"},
      {"\x18", "\x06"},
      // Refused: checksum, range, fields, words, line end.
      {"#WJDRD\t0040\t10\t61\r\n", "ERROR\r\n"},
      {ReadFrame(0x3FFF, 2), "ERROR\r\n"},
      {ReadFrame(0x4000, 1), "ERROR\r\n"},
      {ReadFrame(64, 0), "ERROR\r\n"},
      {BuildFrame(kCommandRead, "40", "10"), "ERROR\r\n"},
      {BuildFrame(kCommandRead, "0040"), "ERROR\r\n"},
      {BuildFrame(kCommandStatusRequest, "01"), "ERROR\r\n"},
      {WriteFrame(66, "AABB", 1), "ERROR\r\n"},
      {WriteFrame(66, "AG", 1), "ERROR\r\n"},
      {"#WJDXX\t00\t7B\r\n", "ERROR\r\n"},
      {"#CMDSY\n", "ERROR\r\n"},
      {"\r\n", "ERROR\r\n"},
      {std::string(100000, 'x') + "\r\n", "ERROR\r\n"},
  };
  for (const Case& c : cases) {
    Bench bench;
    bench.Synchronize();
    const std::vector<std::uint8_t> before(bench.radio.Memory().begin(),
                                           bench.radio.Memory().end());
    EXPECT_EQ(bench.Send(c.sent), c.sent + c.answer);
    EXPECT_TRUE(std::equal(before.begin(), before.end(), bench.radio.Memory().begin())) << c.sent;
  }
}

TEST(SimulatedRadio, StoresWhatIsWritten) {
  Bench bench;
  bench.Synchronize();
  const std::string one = WriteFrame(0x42, "a5", 1);
  const std::string block = WriteFrame(0x3FF0, "000102030405060708090A0B0C0D0E0F", 16);
  EXPECT_EQ(bench.Send(one), one + "#CMDOK\r\n");
  EXPECT_EQ(bench.Send(block), block + "#CMDOK\r\n");
  EXPECT_EQ(bench.radio.Memory()[0x41], 0x41);
  EXPECT_EQ(bench.radio.Memory()[0x42], 0xA5);
  EXPECT_EQ(bench.radio.Memory()[0x43], 0x43);
  EXPECT_EQ(bench.radio.Memory()[0x3FFF], 0x0F);
  EXPECT_EQ(bench.told[4], "write 0x0042 1");
  EXPECT_EQ(bench.told[5], "write 0x3FF0 16");
}

TEST(SimulatedRadio, ASmallMemoryReadsAs255BehindItsEndAndCannotBeWrittenThere) {
  Bench bench(8192);
  bench.Synchronize();
  const std::string read = ReadFrame(8191, 2);
  EXPECT_EQ(bench.Send(read), read + "#CMDOK\r\n" + BuildFrame(kCommandData, "1FFF", "02", "FFFF"));
  const std::string product = ReadFrame(0x3FF2, 1);
  EXPECT_EQ(bench.Send(product),
            product + "#CMDOK\r\n" + BuildFrame(kCommandData, "3FF2", "01", "FF"));
  const std::string write = WriteFrame(8192, "00", 1);
  EXPECT_EQ(bench.Send(write), write + "ERROR\r\n");
  EXPECT_EQ(bench.radio.Memory().size(), 8192U);
}

TEST(SimulatedRadio, SaysNothingOutsideASessionAndRefusesCommandsBeforeSynchronizing) {
  Bench bench;
  EXPECT_EQ(bench.Send("#CMDSY\r\n"), "#CMDSY\r\n");
  EXPECT_EQ(bench.Send("P#CMDSY\r\n"), "PP#CMDSY\r\n") << "not confirmed";
  bench.Send("P0");
  const std::string read = ReadFrame(64, 16);
  EXPECT_EQ(bench.Send(read), read + "ERROR\r\n");
  bench.Send("#CMDSY\r\n\x18");
  EXPECT_EQ(bench.Send(read), read) << "CAN ends the session";
}

TEST(SimulatedRadio, ForgetsALineThatStopsArriving) {
  Bench bench;
  bench.Synchronize();
  EXPECT_EQ(bench.Send("#WJD"), "#WJD");
  EXPECT_EQ(bench.Send("P"), "P") << "still the same line";
  bench.now += SimulatedRadio::kLineTimeout + kByteTime;
  EXPECT_EQ(bench.Send("P"), "PP");
  EXPECT_EQ(bench.Send("#WJ\x18"), "#WJ\x18\x06");
}

// Exchanges 1 to 4 synchronize; the fifth is the one that suffers.
TEST(SimulatedRadio, FaultsShowAtTheirExchangeOnly) {
  const std::string read = ReadFrame(0x40, 2);
  const std::string ok = "#CMDOK\r\n";
  const std::string data = ok + BuildFrame(kCommandData, "0040", "02", "4041");
  const std::string status = "#WJDSR\t00\t7B\r\n";
  const std::string write = WriteFrame(0x40, "99", 1);
  struct Case {
    std::string fault, sent, back;
  };
  const std::vector<Case> cases = {
      {"wrong-echo@5", "#CMDSY\r\n", "\"CMDSY\r\n#CMDOK\r\n"},
      {"wrong-echo@5=3", "#CMDSY\r\n", "#CLDSY\r\n#CMDOK\r\n"},
      {"wrong-echo@5=99", "#CMDSY\r\n", "#CMDSY\r\x0B#CMDOK\r\n"},
      {"wrong-echo@sync:2", "#CMDSY\r\n", "#CMDSX\r\n#CMDOK\r\n"},
      {"missing-echo@5=7", "#CMDSY\r\n", "#CMDSY#CMDOK\r\n"},
      {"missing-echo@5", "#CMDSY\r\n", "#CMDOK\r\n"},
      {"garbled-reply@5=2", read, read + "#BMDOK\r\n" + data.substr(8)},
      {"garbled-reply@5=999", read, read + data.substr(0, data.size() - 1) + "\x0B"},
      {"short-reply@5=5", read, read + "#CMDO"},
      {"short-reply@5=0", read, read},
      {"short-reply@5=99", read, read + data.substr(0, data.size() - 1)},
      {"missing-reply@5", read, read},
      {"wrong-checksum@5", read, read + data.substr(0, data.size() - 3) + "0\r\n"},
      {"wrong-checksum@5", status, status + ok + "#WJDSD\t00\t60\r\n"},
      {"wrong-address@5", read, read + ok + BuildFrame(kCommandData, "0050", "02", "4041")},
      {"wrong-length@5", read, read + ok + BuildFrame(kCommandData, "0040", "03", "4041")},
      {"short-data@5", read, read + ok + BuildFrame(kCommandData, "0040", "02", "40")},
      {"refusal@5", read, read + "ERROR\r\n"},
      {"unknown@5", "ACMD:002\r\n", "ACMD:002\r\n#CMDUN\r\n"},
      {"busy@5", status, status + ok + BuildFrame(kCommandStatusReply, "01")},
      {"other-status@5=255", status, status + ok + BuildFrame(kCommandStatusReply, "FF")},
      {"missing-reply@5", "P", "P"},
      {"missing-reply@5", "\x18", "\x18"},
      {"unplug@5", read, "!"},
      {"unplug@5=3", read, read.substr(0, 3) + "!"},
      {"unplug@5=25", read, read + data.substr(0, 25 - read.size()) + "!"},
      {"unplug@5=999", read, read + data + "!"},
      {"refusal@write", write, write + "ERROR\r\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.fault);
    const ParsedFault fault = ParseFault(c.fault);
    ASSERT_TRUE(fault.fault) << fault.error;
    Bench bench(16384, {*fault.fault});
    bench.Synchronize();
    EXPECT_EQ(bench.Send(c.sent), c.back);
    const std::string name = c.fault.substr(0, c.fault.find('@'));
    ASSERT_EQ(bench.told.size(), 5U);
    EXPECT_TRUE(bench.told[4].ends_with("(" + name + ")")) << bench.told[4];
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(bench.told[i].find('('), std::string::npos);
    EXPECT_EQ(bench.radio.Memory()[0x40], 0x40);

    bench.radio.SetFaults({});
    bench.radio.PlugIn();
    bench.now += 1;
    bench.Synchronize();
    EXPECT_EQ(bench.Send(read), read + data) << "sound again without the fault";
  }
}

TEST(SimulatedRadio, AnUnansweredWriteIsStoredNevertheless) {
  Bench bench(16384, {MakeFault(FaultKind::kMissingReply, ExchangeKind::kWrite, 1)});
  bench.Synchronize();
  bench.Send(WriteFrame(0x40, "99", 1));
  EXPECT_EQ(bench.radio.Memory()[0x40], 0x99);
}

TEST(SimulatedRadio, IsUnpluggedOnlyOnceByTheFirstOfAKind) {
  Bench bench(16384, {MakeFault(FaultKind::kUnplug, ExchangeKind::kSync, 1)});
  EXPECT_EQ(bench.Send("P0#CMDSY\r\nP0"), "PP0#CMDS!") << "nothing more comes back";
  EXPECT_FALSE(bench.radio.Plugged());
  bench.radio.PlugIn();
  EXPECT_EQ(bench.Send("P0#CMDSY\r\n"), "PP0#CMDSY\r\n#CMDOK\r\n");
}

}  // namespace
}  // namespace orvane::link
