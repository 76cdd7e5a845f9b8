/// Qt's window libraries are built without clean-up for exceptions: a LinkError that passes through
/// their event delivery leaves a few small objects of theirs behind. These, and no others.
extern "C" const char* __lsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier)
    return "leak:QMutableEventPoint::detach\n"
           "leak:QtSharedPointer::ExternalRefCountData::getAndRef\n"
           "leak:QArrayData::allocate\n";
}
