include "yardmaster.gs"

class ShuntingOrder
{
  YardMaster master = new YardMaster();
  public string Describe() { return "Puts each arriving train into a siding."; }
};
