class Siding
{
  public string name;
  public float length;   // metres between the signals
  public bool taken = false;
};
