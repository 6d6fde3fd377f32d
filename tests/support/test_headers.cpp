// The program is never run: it is there for the headers that are compiled with it.
int main() {}
