// Placeholder entry; the driver is being written.
int main() { return 0; }
