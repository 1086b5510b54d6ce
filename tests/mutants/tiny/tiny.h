#pragma once

/// What the tests of the tool change and try.
namespace tiny {

enum class Mood { Calm, Angry };

class Counter {
  public:
    int Add(int amount);
    void Close();

  private:
    int mTotal = 0;
    int mCalls = 0;
    bool mClosed = false;
};

Mood MoodOf(int number);
int Steps(int number);
int Fixed();
bool Read(int from, int& number);
int FilledIn(int from);
int PerhapsFilledIn(int from);
bool HasHalf(int number);

} // namespace tiny
