// The program is never run: it only serves to compile the headers.
int main() {}
