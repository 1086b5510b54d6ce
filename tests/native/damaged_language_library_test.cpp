// What a language library does with texts that are missing or damaged.
#include "language_library_files.h"
#include "tests/native/support/loaded_library.h"

#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace {

using namespace kestrelmoor::language_library;

TEST(EmptyLanguageLibrary, SaysThatItHasNoTexts) {
    Library library(KESTRELMOOR_EMPTY_LOC);
    ASSERT_NE(library.get_class_object, nullptr);
    ILocalization* object = library.NewObject();
    EXPECT_EQ(object->table->Initialize(object, kWindows2000, kEnglish), LOC_E_DAMAGED);
    LocArray* array = nullptr;
    EXPECT_EQ(object->table->Languages(object, &array), LOC_E_DAMAGED);
    EXPECT_EQ(array, nullptr);
    object->table->Release(object);
}

class DamagedLanguageLibrary : public testing::Test {
  protected:
    // Places in the area's head.
    static constexpr std::size_t kFormat = 20;
    static constexpr std::size_t kUsed = 24;
    static constexpr std::size_t kLanguageCount = 28;
    static constexpr std::size_t kRecordCount = 44;
    static constexpr std::size_t kRecordsOffset = 48;
    static constexpr std::size_t kHeadSize = 76;

    void SetUp() override {
        std::ifstream file(KESTRELMOOR_DEFAULT_LOC, std::ios::binary);
        mBytes.assign(std::istreambuf_iterator<char>(file), {});
        mArea = mBytes.find("KestrelmoorTexts");
        ASSERT_NE(mArea, std::string::npos);
        mFolder = std::filesystem::temp_directory_path() /
                  ("kestrelmoor-damaged-" + std::to_string(static_cast<long>(getpid())));
        std::filesystem::create_directories(mFolder);
    }

    void TearDown() override { std::filesystem::remove_all(mFolder); }

    std::uint32_t Word(std::size_t place) const {
        std::uint32_t value = 0;
        std::memcpy(&value, mBytes.data() + mArea + place, sizeof value);
        return value;
    }

    void SetWord(std::size_t place, std::uint32_t value) {
        std::memcpy(mBytes.data() + mArea + place, &value, sizeof value);
    }

    // Uses the whole library, and answers what Initialize said.
    std::int32_t Use() {
        std::string path = mFolder / (std::to_string(mFiles++) + ".loc");
        std::ofstream(path, std::ios::binary) << mBytes;
        std::int32_t result = LOC_E_FAIL;
        {
            Library library(path);
            if (!library.get_class_object) {
                ADD_FAILURE() << "not loaded";
                return result;
            }
            ILocalization* object = library.NewObject();
            result = object->table->Initialize(object, kWindows2000, kEnglish);
            ReadEverything(object);
            object->table->Release(object);
        }
        std::filesystem::remove(path);
        return result;
    }

    std::string mBytes;
    std::size_t mArea = 0;

  private:
    static void ReadEverything(ILocalization* object) {
        LocText text = nullptr;
        for (int number = 0; number < 1010; ++number) {
            auto narrow = static_cast<std::int16_t>(number);
            object->table->GetText(object, narrow, &text);
            LocFreeText(text);
            object->table->GetPluralText(object, narrow, 199, &text);
            LocFreeText(text);
        }
        object->table->FontName(object, &text);
        LocFreeText(text);
        object->table->HelpFile(object, &text);
        LocFreeText(text);
        LocArray* array = nullptr;
        object->table->Languages(object, &array);
        LocFreeArray(array);
    }

    std::filesystem::path mFolder;
    int mFiles = 0;
};

TEST_F(DamagedLanguageLibrary, AWholeCopyIsServed) {
    EXPECT_EQ(Use(), LOC_S_OK);
}

TEST_F(DamagedLanguageLibrary, AnotherFormatIsRefused) {
    SetWord(kFormat, 2);
    EXPECT_EQ(Use(), LOC_E_DAMAGED);
}

TEST_F(DamagedLanguageLibrary, AnAreaWithoutLanguagesIsRefused) {
    SetWord(kLanguageCount, Word(kLanguageCount) & 0xFFFF0000u);
    EXPECT_EQ(Use(), LOC_E_DAMAGED);
}

TEST_F(DamagedLanguageLibrary, MoreUsedThanThereIsIsRefused) {
    SetWord(kUsed, 32769);
    EXPECT_EQ(Use(), LOC_E_DAMAGED);
}

TEST_F(DamagedLanguageLibrary, OneRecordTooManyIsRefused) {
    SetWord(kRecordCount, Word(kRecordCount) + 1);
    EXPECT_EQ(Use(), LOC_E_DAMAGED);
}

TEST_F(DamagedLanguageLibrary, EachOffsetOutsideTheAreaIsRefused) {
    for (std::size_t place : {32u, 40u, 48u, 52u, 60u, 68u}) {
        std::uint32_t right = Word(place);
        for (std::uint32_t wrong : {0u, 32768u, 0xFFFFFFFEu}) {
            SetWord(place, wrong);
            EXPECT_EQ(Use(), LOC_E_DAMAGED) << place << " " << wrong;
        }
        SetWord(place, right);
    }
}

TEST_F(DamagedLanguageLibrary, ARecordThatPointsOutsideIsRefused) {
    std::size_t last = Word(kRecordsOffset) + 12 * (Word(kRecordCount) - 1);
    SetWord(last + 8, 0x7FFFFFFF);
    EXPECT_EQ(Use(), LOC_E_DAMAGED);
}

TEST_F(DamagedLanguageLibrary, RecordsOutOfOrderAreRefused) {
    std::size_t first = Word(kRecordsOffset);
    std::uint32_t key = Word(first);
    SetWord(first, Word(first + 12));
    SetWord(first + 12, key);
    EXPECT_EQ(Use(), LOC_E_DAMAGED);
}

TEST_F(DamagedLanguageLibrary, AnyDamageIsSurvived) {
    std::mt19937 random(20);
    const std::string whole = mBytes;
    const std::size_t records = Word(kRecordsOffset);
    const std::size_t records_size = 12 * std::size_t{Word(kRecordCount)};
    for (int round = 0; round < 400; ++round) {
        mBytes = whole;
        std::size_t head_place = 16 + random() % (kHeadSize - 16);
        std::size_t record_place = records + random() % records_size;
        std::size_t place = round % 2 == 0 ? head_place : record_place;
        mBytes[mArea + place] = static_cast<char>(random());
        Use();
    }
}

} // namespace
