#include "grid/field_reader.h"

#include <algorithm>
#include <utility>

namespace obk {

namespace {

bool endsField(char byte) {
    return byte == ',' || byte == '\r' || byte == '\n';
}

}  // namespace

FieldReader::FieldReader(std::unique_ptr<InputFile> file, const CodePage& page, WaitCursor& waitCursor)
    : file_(std::move(file)), page_(page), waitCursor_(waitCursor), buffer_(file_ ? bufferSize : 0) {}

bool FieldReader::fill() {
    if (!file_) return false;
    waitCursor_.progress();
    at_ = 0;
    end_ = file_->read(buffer_);
    if (end_ == 0) file_.reset();
    return end_ > 0;
}

bool FieldReader::read(Text& onto) {
    if (atEnd()) return false;
    while (!atEnd() && buffer_[at_] == ' ') ++at_;
    if (!atEnd() && buffer_[at_] == '"') {
        ++at_;
        readQuoted(onto);
    } else {
        readPlain(onto);
    }
    finishField();
    return true;
}

void FieldReader::readQuoted(Text& onto) {
    while (!atEnd()) {
        const std::string_view rest = buffered();
        const size_t quote = rest.find('"');
        const size_t length = std::min(quote, rest.size());
        page_.decode(rest.substr(0, length), onto);
        at_ += length;
        if (quote == std::string_view::npos) continue;
        ++at_;
        return;
    }
}

void FieldReader::readPlain(Text& onto) {
    const size_t start = onto.size();
    while (!atEnd() && !endsField(buffer_[at_])) {
        const std::string_view rest = buffered();
        const auto end = std::find_if(rest.begin(), rest.end(), endsField);
        const auto length = static_cast<size_t>(end - rest.begin());
        page_.decode(rest.substr(0, length), onto);
        at_ += length;
    }
    size_t end = onto.size();
    while (end > start && onto[end - 1] == u' ') --end;
    onto.resize(end);
}

void FieldReader::finishField() {
    while (!atEnd() && !endsField(buffer_[at_])) ++at_;
    if (atEnd()) return;
    const char delimiter = buffer_[at_++];
    if (delimiter == '\r' && !atEnd() && buffer_[at_] == '\n') ++at_;
}

}  // namespace obk
